#pragma once

#include "core/CommandRunner.h"
#include "system/processes/ChildReaper.h"

namespace tarnwell::core {

/// Runs command lines with /bin/zsh. A launch that fails, and captured output that is not UTF-8, are faults.
///
/// A child sees the null device as its standard input, default signal dispositions, an empty signal mask, and no
/// descriptor of this process but its three streams and what an unread pipe takes. All calls belong on one thread.
class ShellCommandRunner final : public CommandRunner {
 public:
  /// The child's output goes to a pipe that is never read (`system::UnreadPipe`): a child that prints more than it
  /// holds blocks, itself alone and for good.
  void runDetached(const std::string& commandLine) override;

  /// Returns when the output ends, even if the child lives on.
  std::string runCaptured(const std::string& commandLine) override;

  /// Readable when a child of either mode has ended. Owned by the runner, the same for its whole life.
  int descriptor() const { return reaper_.descriptor(); }

  /// Takes ended children off the system's list and never blocks. Call it whenever `descriptor()` is readable; what
  /// one call leaves over keeps the descriptor readable.
  void reap() { reaper_.reap(); }

 private:
  system::ChildReaper reaper_;
};

}  // namespace tarnwell::core
