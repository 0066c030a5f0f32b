#pragma once

#include <sys/types.h>

#include <chrono>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "system/Descriptor.h"

namespace tarnwell::standin {

/// A process that runs, held so that its number cannot become another one's.
class RunningProcess {
 public:
  /// Those of a name (which the kernel cuts after 15 bytes) that play in the system of `root`. None of them is the
  /// caller, a process that has ended, or another user's.
  static std::vector<RunningProcess> named(std::string_view name, const std::string& root);

  /// False when it may not be asked to end.
  bool terminate() const;

  /// Sleeps until it has ended. False when `end` has come first.
  bool waitForEnding(std::chrono::steady_clock::time_point end) const;

 private:
  explicit RunningProcess(system::Descriptor process) : process_(std::move(process)) {}

  static std::optional<RunningProcess> hold(pid_t number, std::string_view name, const std::string& root);

  system::Descriptor process_;
};

}  // namespace tarnwell::standin
