#include "system/processes/ProcessGuardMac.h"

#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdlib>

#include "system/events/KernelQueueMac.h"
#include "system/processes/SignalPause.h"

namespace tarnwell::system {
namespace {

/// A process that waits beside the child, and calls nothing but the system: it is a copy of the starter.
class Guard {
 public:
  Guard(pid_t child, pid_t starter) : child_(child), starter_(starter) {}

  [[noreturn]] void run(std::chrono::seconds limit, bool endsWithStarter) {
    // What it holds of the starter's would not end with the starter.
    for (int number = 0; number < ::getdtablesize(); ++number) {
      ::close(number);
    }
    queue_ = ::kqueue();
    // One that is gone already tells so at once.
    if (!watch(kernelEvent(child_, EVFILT_PROC, EV_ADD, NOTE_EXIT))) {
      ::_exit(EXIT_SUCCESS);
    }
    if (endsWithStarter && !watch(kernelEvent(starter_, EVFILT_PROC, EV_ADD, NOTE_EXIT))) {
      end(SIGKILL);
    }
    if (limit.count() > 0) {
      watch(kernelEvent(0, EVFILT_TIMER, EV_ADD | EV_ONESHOT, NOTE_SECONDS, limit.count()));
    }
    waitForFirst();
  }

 private:
  bool watch(const struct kevent& event) const { return ::kevent(queue_, &event, 1, nullptr, 0, nullptr) == 0; }

  [[noreturn]] void waitForFirst() const {
    struct kevent event = {};
    while (::kevent(queue_, nullptr, 0, &event, 1, nullptr) < 0 && errno == EINTR) {
    }
    if (event.filter == EVFILT_TIMER) {
      end(SIGALRM);
    }
    if (event.ident == static_cast<std::uintptr_t>(starter_)) {
      end(SIGKILL);
    }
    ::_exit(EXIT_SUCCESS);
  }

  [[noreturn]] void end(int signal) const {
    ::kill(child_, signal);
    ::_exit(EXIT_SUCCESS);
  }

  pid_t child_;
  pid_t starter_;
  int queue_ = -1;
};

}  // namespace

// A child's child: it is the system's to take off the list.
void guard(pid_t child, std::chrono::seconds limit, bool endsWithStarter) {
  if (!endsWithStarter && limit.count() == 0) {
    return;
  }
  Guard guard(child, ::getpid());
  const SignalPause pause;
  const pid_t between = ::fork();
  if (between == 0) {
    if (::fork() == 0) {
      guard.run(limit, endsWithStarter);
    }
    ::_exit(EXIT_SUCCESS);
  }
  while (::waitpid(between, nullptr, 0) < 0 && errno == EINTR) {
  }
}

}  // namespace tarnwell::system
