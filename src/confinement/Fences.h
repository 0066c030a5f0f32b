#pragma once

#include "confinement/Rights.h"

namespace tarnwell::confinement {

// Each is raised by itself. False, with errno set, where the system does not offer it.

/// What this process starts has no more rights than it has itself.
bool refuseNewPrivileges();
/// In bytes of address space.
bool limitMemory(std::uint64_t most);
/// Ends this process when that time has passed on the clock. More than none.
bool limitTime(std::chrono::milliseconds most);
/// Closes the file system but for what the rights name.
bool fenceFiles(const Rights& rights);
/// Refuses the system calls that work within the rights does not need. To be called last: it takes away the calls that
/// the others are made with.
bool filterSystemCalls(const Rights& rights);

}  // namespace tarnwell::confinement
