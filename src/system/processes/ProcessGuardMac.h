#pragma once

#include "system/processes/Process.h"

namespace tarnwell::system {

/// Sees to what a new process is to be ended by that the system does not promise: its time, and the end of what has
/// started it. Nothing is done where the launch asks for neither.
void guard(pid_t child, const Launch& launch);

}  // namespace tarnwell::system
