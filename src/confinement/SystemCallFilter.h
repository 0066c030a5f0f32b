#pragma once

#include "confinement/Confinement.h"

namespace tarnwell::confinement {

/// Has the kernel refuse the calls that the rights do not need: sockets, new processes, and what reaches into other
/// processes or deep into the kernel. False, with errno set, where the kernel does not offer that.
bool filterSystemCalls(const Rights& rights);

}  // namespace tarnwell::confinement
