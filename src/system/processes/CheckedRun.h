#pragma once

#include <chrono>
#include <string>

#include "system/processes/Process.h"

namespace tarnwell::system {

/// What became of a process and what it has printed.
struct CheckedRun {
  /// Of one that was ended for want of patience: killed by SIGKILL.
  ProcessEnd end = {};
  bool isInTime = true;
  std::string output = {};
  std::string errors = {};
};

/// Starts a process and waits for its end, `patience` at most; then it is ended, with what it has started that stayed
/// in its session; so it is where this process ends before. What others still hold of its outputs is not waited for.
/// Its session is its own, and the outputs of `launch` are not looked at. A failure is one to start.
Result<CheckedRun> runChecked(Launch launch, std::chrono::milliseconds patience);

}  // namespace tarnwell::system
