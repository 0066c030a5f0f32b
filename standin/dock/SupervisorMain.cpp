/// Starts the Dock stand-in that lies beside this program, and starts it again whenever it ends, as macOS does with its
/// Dock. Only one supervisor runs for each MACOS_ROOT.

#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "diagnostics/Console.h"
#include "diagnostics/StandardStreams.h"
#include "standin/dock/RestartPolicy.h"
#include "standin/dock/UiProcess.h"
#include "standin/store/SystemRoot.h"
#include "system/files/FileLock.h"
#include "system/files/Folders.h"
#include "system/processes/Process.h"
#include "system/processes/RunningExecutable.h"

namespace tarnwell::standin {
namespace {

constexpr std::string_view usageText = R"(Usage: dock-supervisor [--help]

Keeps the Dock that lies beside this program running until it is ended itself.

  --help   this text
)";

using std::chrono::milliseconds;

constexpr milliseconds grace{2000};  // for a process that was asked to end
constexpr std::array<int, 4> watched = {SIGTERM, SIGINT, SIGHUP, SIGCHLD};

/// Keeps the Dock that lies beside this program running, until a SIGTERM, SIGINT or SIGHUP asks both to end. The kernel
/// kills the Dock when the supervisor dies in any other way. The UI that shows it stays for the next one. Sleeps
/// whenever there is nothing to do.
class Supervisor {
 public:
  /// Returns when asked to end, with the process gone and reaped.
  void run() {
    ::sigemptyset(&signals_);
    for (const int signal : watched) {
      ::sigaddset(&signals_, signal);
    }
    ::sigprocmask(SIG_BLOCK, &signals_, nullptr);
    // An inherited SIG_IGN would have the kernel reap for us and lose the status.
    (void)std::signal(SIGCHLD, SIG_DFL);
    for (;;) {
      const Clock::time_point begin = Clock::now();
      start();
      const auto end = waitForEnding();
      if (!end) {
        return stop();
      }
      if (ui_) {
        ui_->tellEnd();
      }
      const auto lifetime = std::chrono::duration_cast<milliseconds>(Clock::now() - begin);
      if (!rest(policy_.delayAfter(endingOf(*end), lifetime))) {
        return;
      }
    }
  }

 private:
  using Clock = std::chrono::steady_clock;

  void start() {
    if (!ui_ || !ui_->isRunning()) {
      ui_ = UiProcess::start();
    }
    // It lets SIGTERM through once it has spoken, so that no kill comes before the line in its log.
    const auto own = system::runningExecutable();
    auto started = own ? system::Process::start({.words = {own->parent_path() / "Dock", ui_ ? "--ui" : "--no-window"},
                                                 .extra = ui_ ? ui_->socket() : -1,
                                                 .blockedSignals = {SIGTERM},
                                                 .endsWithStarter = true})
                       : own.error();
    if (!started) {
      diagnostics::printErrorLine("dock-supervisor: " + started.error().message);
    }
    process_ = started ? *std::move(started) : system::Process(-1);
  }

  // Nothing when asked to end before the process has ended.
  std::optional<system::ProcessEnd> waitForEnding() {
    for (;;) {
      if (const auto end = ended()) {
        return end;
      }
      if (signalBefore(Clock::time_point::max()) != SIGCHLD) {
        return std::nullopt;
      }
    }
  }

  // A process that could not even be made has failed.
  std::optional<system::ProcessEnd> ended() { return process_.number() > 0 ? process_.end() : system::ProcessEnd{}; }

  void stop() {
    process_.send(SIGTERM);
    const Clock::time_point deadline = Clock::now() + grace;
    while (!ended()) {
      if (!signalBefore(deadline)) {
        process_.send(SIGKILL);
        process_.wait();
      }
    }
  }

  // The next signal, or nothing when `end` has come first.
  std::optional<int> signalBefore(Clock::time_point end) const {
    for (;;) {
      const auto left = std::max(end - Clock::now(), Clock::duration::zero());
      const auto seconds = std::chrono::floor<std::chrono::seconds>(left);
      const timespec time{seconds.count(), std::chrono::nanoseconds(left - seconds).count()};
      const int signal = ::sigtimedwait(&signals_, nullptr, &time);
      if (signal > 0) {
        return signal;
      }
      if (errno == EAGAIN) {
        return std::nullopt;
      }
    }
  }

  // False when asked to end meanwhile.
  bool rest(milliseconds delay) const {
    const Clock::time_point end = Clock::now() + delay;
    while (const auto signal = signalBefore(end)) {
      if (*signal != SIGCHLD) {
        return false;
      }
    }
    return true;
  }

  sigset_t signals_{};
  RestartPolicy policy_;
  system::Process process_{-1};
  std::unique_ptr<UiProcess> ui_;
};

int fail(const std::string& message, int status) {
  diagnostics::printErrorLine("dock-supervisor: " + message);
  return status;
}

int supervise() {
  const auto root = systemRoot();
  if (!root) {
    return fail(root.error().message, 1);
  }
  const std::string lockPath = *root + "/.dock-supervisor.lock";
  if (!system::makeFolders(*root)) {
    return fail(system::systemFailure("cannot lock " + lockPath).message, 1);
  }
  const auto lock = system::FileLock::take(lockPath, {});
  if (!lock) {
    const bool isTaken = lock.error().error == EWOULDBLOCK;
    return fail(isTaken ? "another one is already running for " + *root : lock.error().message, 1);
  }
  Supervisor().run();
  return 0;
}

}  // namespace
}  // namespace tarnwell::standin

int main(int argc, char** argv) {  // NOLINT(bugprone-exception-escape): what is thrown past here is a fault
  using tarnwell::standin::usageText;
  tarnwell::diagnostics::prepareStandardStreams();
  // We outlive the parent process, and must not keep the other end of a pipe of theirs open.
  ::close_range(STDERR_FILENO + 1, ~0U, 0);
  if (argc < 2) {
    return tarnwell::standin::supervise();
  }
  const std::string_view argument = argv[1];
  if (argument == "--help") {
    return tarnwell::diagnostics::print(usageText) ? 0 : 1;
  }
  return tarnwell::standin::fail("unknown argument " + std::string(argument) + "\n" + std::string(usageText), 2);
}
