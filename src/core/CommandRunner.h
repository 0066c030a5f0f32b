#pragma once

#include <string>

namespace tarnwell::core {

/// The one way to run a command line. Lines are shell text: operators such as ";" and "&&" work.
class CommandRunner {
 public:
  CommandRunner() = default;
  CommandRunner(const CommandRunner&) = delete;
  CommandRunner& operator=(const CommandRunner&) = delete;
  virtual ~CommandRunner() = default;

  /// Starts `commandLine` and returns at once. Its output is not read and its outcome not examined.
  virtual void runDetached(const std::string& commandLine) = 0;

  /// Runs `commandLine` and returns all that it printed, standard error included, in the order printed, unchanged.
  /// Blocks until the output ends; there is no time-out. The exit status is not looked at.
  virtual std::string runCaptured(const std::string& commandLine) = 0;
};

}  // namespace tarnwell::core
