#include "standin/dock/Supervisor.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <utility>

#include "diagnostics/Console.h"
#include "system/RunningExecutable.h"

namespace tarnwell::standin {
namespace {

using std::chrono::milliseconds;

constexpr milliseconds unlimited = milliseconds::max();
constexpr milliseconds grace{2000};  // for a process that was asked to end
constexpr std::array<int, 4> watched = {SIGTERM, SIGINT, SIGHUP, SIGCHLD};

timespec timespecOf(milliseconds duration) {
  const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(duration);
  return {seconds.count(), static_cast<long>((duration - seconds).count()) * 1'000'000};
}

milliseconds since(std::chrono::steady_clock::time_point start) {
  return std::chrono::duration_cast<milliseconds>(std::chrono::steady_clock::now() - start);
}

}  // namespace

Supervisor::Supervisor() {
  ::sigemptyset(&signals_);
  for (const int signal : watched) {
    ::sigaddset(&signals_, signal);
  }
}

void Supervisor::run() {
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
    if (!rest(policy_.delayAfter(endingOf(*end), since(begin)))) {
      return;
    }
  }
}

void Supervisor::start() {
  if (!ui_ || !ui_->isRunning()) {
    ui_ = UiProcess::start();
  }
  // It lets SIGTERM through once it has spoken, so that no kill comes before the line in its log.
  const auto own = system::runningExecutable();
  auto started = own ? system::Process::start({.words = {own->parent_path() / "Dock", ui_ ? "--ui=3" : "--no-window"},
                                               .extra = ui_ ? ui_->socket() : -1,
                                               .blockedSignals = {SIGTERM},
                                               .endsWithStarter = true})
                     : own.error();
  if (!started) {
    diagnostics::printErrorLine("dock-supervisor: " + started.error().message);
  }
  process_ = started ? *std::move(started) : system::Process(-1);
}

std::optional<system::ProcessEnd> Supervisor::waitForEnding() {
  for (;;) {
    if (const auto end = ended()) {
      return end;
    }
    if (waitForSignal(unlimited) != SIGCHLD) {
      return std::nullopt;
    }
  }
}

// A process that could not even be made has failed.
std::optional<system::ProcessEnd> Supervisor::ended() {
  return process_.number() > 0 ? process_.end() : system::ProcessEnd{};
}

void Supervisor::stop() {
  process_.send(SIGTERM);
  const Clock::time_point deadline = Clock::now() + grace;
  while (!ended()) {
    if (Clock::now() >= deadline) {
      process_.send(SIGKILL);
    }
    waitForSignal(std::max(std::chrono::duration_cast<milliseconds>(deadline - Clock::now()), milliseconds(10)));
  }
}

std::optional<int> Supervisor::waitForSignal(milliseconds limit) const {
  const timespec time = timespecOf(limit);
  for (;;) {
    const int signal =
        limit == unlimited ? ::sigwaitinfo(&signals_, nullptr) : ::sigtimedwait(&signals_, nullptr, &time);
    if (signal > 0) {
      return signal;
    }
    if (errno == EAGAIN) {
      return std::nullopt;
    }
  }
}

bool Supervisor::rest(milliseconds delay) const {
  const Clock::time_point end = Clock::now() + delay;
  for (;;) {
    const auto left = std::chrono::duration_cast<milliseconds>(end - Clock::now());
    if (left <= milliseconds::zero()) {
      return true;
    }
    const std::optional<int> signal = waitForSignal(left);
    if (signal && signal != SIGCHLD) {
      return false;
    }
  }
}

}  // namespace tarnwell::standin
