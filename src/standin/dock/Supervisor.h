#pragma once

#include <sys/types.h>

#include <chrono>
#include <csignal>
#include <optional>
#include <string>
#include <vector>

#include "standin/dock/RestartPolicy.h"

namespace tarnwell::standin {

/// Keeps one process running: starts it again whenever it ends, until a SIGTERM, SIGINT or SIGHUP asks both to end.
/// The kernel kills the process when the supervisor dies in any other way. Sleeps whenever there is nothing to do.
class Supervisor {
 public:
  /// `command` is the executable's path and its arguments.
  explicit Supervisor(std::vector<std::string> command);

  /// Returns when asked to end, with the process gone and reaped.
  void run();

 private:
  using Clock = std::chrono::steady_clock;

  void start();
  // The status of the process once it has ended; nothing when asked to end before that.
  std::optional<int> waitForEnding();
  bool hasEnded(int& status);
  void stop();
  // The next signal, or nothing when the time is over.
  std::optional<int> waitForSignal(std::chrono::milliseconds limit) const;
  // False when asked to end meanwhile.
  bool rest(std::chrono::milliseconds delay) const;

  std::vector<std::string> command_;
  sigset_t signals_{};
  RestartPolicy policy_;
  pid_t process_ = -1;
};

}  // namespace tarnwell::standin
