#pragma once

#include <sys/types.h>

#include <chrono>

namespace tarnwell::system {

/// Sees to what a new process is to be ended by that the system does not promise: its time, and the end of what has
/// started it. Nothing is done where there is no limit (zero) and it may outlive its starter.
void guard(pid_t child, std::chrono::seconds limit, bool endsWithStarter);

}  // namespace tarnwell::system
