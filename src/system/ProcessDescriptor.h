#pragma once

#include <sys/types.h>

#include "system/Descriptor.h"

namespace tarnwell::system {

/// Readable once the child has ended, and closed on exec. Empty, with errno set, when there is none to be had.
Descriptor processDescriptor(pid_t child);

}  // namespace tarnwell::system
