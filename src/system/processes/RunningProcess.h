#pragma once

#include <sys/types.h>

#include <chrono>
#include <filesystem>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "system/base/Descriptor.h"

namespace tarnwell::system {

/// A process that need not be a child of this one, held so that its number cannot become another one's.
class RunningProcess {
 public:
  /// Those of a name, which the system may know only the beginning of, apart from this process and from those that are
  /// ending.
  static std::vector<RunningProcess> named(std::string_view name);

  pid_t number() const { return number_; }

  /// "NAME=value" each, as it was started with. Empty for another user's process, and for one that is ending.
  std::vector<std::string> environment() const;

  /// Where its relative paths begin.
  std::filesystem::path workingFolder() const;

  /// False when it has ended, or may not be sent any.
  bool send(int signal) const;

  /// Blocks until it has ended. False when `end` has come first.
  bool waitForEnd(std::chrono::steady_clock::time_point end) const { return ended_.waitUntilReadable(end); }

 private:
  RunningProcess(pid_t number, Descriptor ended) : number_(number), ended_(std::move(ended)) {}

  pid_t number_;
  Descriptor ended_;  // readable once it has
};

}  // namespace tarnwell::system
