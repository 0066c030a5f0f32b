#pragma once

#include <sys/types.h>

#include <chrono>

namespace tarnwell::system {

/// What a new process is to be ended by that the system does not promise.
struct Guarded {
  pid_t child;
  pid_t starter;
  /// Its own time; zero is for ever.
  std::chrono::seconds limit = std::chrono::seconds(0);
  /// What is killed when the starter ends, as kill() takes it: the child, its group as a negative number, or nothing.
  pid_t endsWithStarter = 0;
};

/// Starts a process that waits beside the child. Signals are held back.
void guard(const Guarded& guarded);

/// What that does on each system: it is a copy of the process that calls `guard`, and calls nothing but the system.
[[noreturn]] void waitBeside(const Guarded& guarded);

}  // namespace tarnwell::system
