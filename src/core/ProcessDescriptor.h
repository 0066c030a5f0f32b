#pragma once

#include <sys/types.h>

#include "core/Descriptor.h"

namespace tarnwell::core {

/// Readable once the child has ended, and closed on exec. Empty, with errno set, when there is none to be had.
Descriptor processDescriptor(pid_t child);

}  // namespace tarnwell::core
