#include "standin/dock/Supervisor.h"

#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <utility>

#include "diagnostics/Console.h"

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

// The new process gets a clean slate, whatever was ignored or blocked here or in whoever started us.
void restoreSignals() {
  for (const int signal : watched) {
    (void)std::signal(signal, SIG_DFL);
  }
  (void)std::signal(SIGPIPE, SIG_DFL);
  (void)std::signal(SIGXFSZ, SIG_DFL);
  // The Dock lets it through once it has spoken, so that no kill comes before the line in its log.
  sigset_t held;
  ::sigemptyset(&held);
  ::sigaddset(&held, SIGTERM);
  ::sigprocmask(SIG_SETMASK, &held, nullptr);
}

[[noreturn]] void becomeDock(std::string path, std::string argument, pid_t supervisor) {
  // The order closes the gap in which the supervisor could die unnoticed.
  ::prctl(PR_SET_PDEATHSIG, SIGKILL);
  if (::getppid() != supervisor) {
    ::_exit(1);
  }
  restoreSignals();
  std::array<char*, 3> arguments = {path.data(), argument.data(), nullptr};
  ::execv(path.c_str(), arguments.data());
  diagnostics::printErrorLine("dock-supervisor: cannot start " + path + ": " +
                              std::strerror(errno));  // NOLINT(concurrency-mt-unsafe): one thread
  ::_exit(127);
}

}  // namespace

Supervisor::Supervisor(std::string dock) : dock_(std::move(dock)) {
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
    const std::optional<int> status = waitForEnding();
    if (!status) {
      return stop();
    }
    if (face_) {
      face_->tellEnd();
    }
    if (!rest(policy_.delayAfter(endingOf(*status), since(begin)))) {
      return;
    }
  }
}

void Supervisor::start() {
  if (!face_ || !face_->isRunning()) {
    face_ = FaceProcess::start();
  }
  const pid_t self = ::getpid();
  process_ = ::fork();
  if (process_ == 0) {
    if (face_) {
      ::fcntl(face_->socket(), F_SETFD, 0);
    }
    becomeDock(dock_, face_ ? "--face=" + std::to_string(face_->socket()) : "--no-window", self);
  }
}

std::optional<int> Supervisor::waitForEnding() {
  // A process that could not even be made has failed.
  int status = W_EXITCODE(1, 0);
  while (!hasEnded(status)) {
    if (waitForSignal(unlimited) != SIGCHLD) {
      return std::nullopt;
    }
  }
  return status;
}

bool Supervisor::hasEnded(int& status) {
  if (process_ > 0 && ::waitpid(process_, &status, WNOHANG) == 0) {
    return false;
  }
  process_ = -1;
  return true;
}

void Supervisor::stop() {
  // Without a process, its number would stand for every process there is.
  if (process_ > 0) {
    ::kill(process_, SIGTERM);
  }
  const Clock::time_point deadline = Clock::now() + grace;
  int status = 0;
  while (!hasEnded(status)) {
    if (Clock::now() >= deadline) {
      ::kill(process_, SIGKILL);
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
