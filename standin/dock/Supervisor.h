#pragma once

#include <chrono>
#include <csignal>
#include <memory>
#include <optional>

#include "standin/dock/RestartPolicy.h"
#include "standin/dock/UiProcess.h"
#include "system/Process.h"

namespace tarnwell::standin {

/// Keeps a Dock running: starts it again whenever it ends, until a SIGTERM, SIGINT or SIGHUP asks both to end. The
/// kernel kills the Dock when the supervisor dies in any other way. The UI that shows it stays for the next one.
/// Sleeps whenever there is nothing to do.
class Supervisor {
 public:
  /// Of the Dock that lies beside this program.
  Supervisor();

  /// Returns when asked to end, with the process gone and reaped.
  void run();

 private:
  using Clock = std::chrono::steady_clock;

  void start();
  // Nothing when asked to end before the process has ended.
  std::optional<system::ProcessEnd> waitForEnding();
  std::optional<system::ProcessEnd> ended();
  void stop();
  // The next signal, or nothing when the time is over.
  std::optional<int> waitForSignal(std::chrono::milliseconds limit) const;
  // False when asked to end meanwhile.
  bool rest(std::chrono::milliseconds delay) const;

  sigset_t signals_{};
  RestartPolicy policy_;
  system::Process process_{-1};
  std::unique_ptr<UiProcess> ui_;
};

}  // namespace tarnwell::standin
