#pragma once

#include <string>

#include "system/processes/CheckedRun.h"

namespace tarnwell::commandline {

/// What runs command lines and tells what became of them.
class Shell {
 public:
  Shell() = default;
  Shell(const Shell&) = delete;
  Shell& operator=(const Shell&) = delete;
  virtual ~Shell() = default;

  /// Blocks until it has ended, ten seconds at most. A failure is one to start.
  virtual system::Result<system::CheckedRun> run(const std::string& commandLine) = 0;
};

/// The one that the window runs its command lines with.
class ZshShell final : public Shell {
 public:
  /// The first that it runs puts the stand-ins of `program` first on this process's PATH.
  explicit ZshShell(std::string program) : program_(std::move(program)) {}

  system::Result<system::CheckedRun> run(const std::string& commandLine) override;

 private:
  std::string program_;
  bool isReady_ = false;
};

/// The output of a command line that has succeeded. A failure is the tool's own reason in a line, without the time and
/// number that the tool begins it with.
system::Result<std::string> outputOf(Shell& shell, const std::string& commandLine);

}  // namespace tarnwell::commandline
