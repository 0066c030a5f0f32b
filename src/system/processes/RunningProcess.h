#pragma once

#include <sys/types.h>

#include <chrono>
#include <filesystem>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "system/base/Descriptor.h"

namespace tarnwell::system {

/// A process that need not be a child of this one, held so that its number cannot become another one's.
class RunningProcess {
 public:
  /// This user's of one of the names, of which the system may know only the beginning, apart from this process and from
  /// those that are ending. Looks at every process there is.
  static std::vector<RunningProcess> named(std::span<const std::string_view> names);

  /// Of those that this one has started; in the way of named() otherwise.
  std::vector<RunningProcess> childrenNamed(std::string_view name) const;

  /// The one of the names by which it was found.
  const std::string& name() const { return name_; }

  pid_t number() const { return number_; }

  /// "NAME=value" each, as it was started with. Empty where the system will not tell, and for one that is ending.
  std::vector<std::string> environment() const;

  /// Where its relative paths begin.
  std::filesystem::path workingFolder() const;

  /// False when it has ended, or may not be sent any.
  bool send(int signal) const;

  /// Blocks until it has ended. False when `end` has come first.
  bool waitForEnd(std::chrono::steady_clock::time_point end) const { return ended_.waitUntilReadable(end); }

 private:
  RunningProcess(pid_t number, std::string_view name, Descriptor ended)
      : name_(name), number_(number), ended_(std::move(ended)) {}

  static std::vector<RunningProcess> named(std::span<const std::string_view> names, std::span<const pid_t> numbers);

  std::string name_;
  pid_t number_;
  Descriptor ended_;  // readable once it has
};

}  // namespace tarnwell::system
