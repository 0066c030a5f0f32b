#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdint>
#include <cstdlib>

#include "system/events/KernelQueueMac.h"
#include "system/processes/ProcessGuard.h"

namespace tarnwell::system {
namespace {

class Guard {
 public:
  explicit Guard(const Guarded& guarded) : guarded_(guarded) {}

  [[noreturn]] void run() {
    // What it holds of the starter's would not end with the starter.
    for (int number = 0; number < ::getdtablesize(); ++number) {
      ::close(number);
    }
    queue_ = ::kqueue();
    // One that is gone already tells so at once.
    if (!watch(kernelEvent(guarded_.child, EVFILT_PROC, EV_ADD, NOTE_EXIT))) {
      ::_exit(EXIT_SUCCESS);
    }
    if (guarded_.endsWithStarter != 0 && !watch(kernelEvent(guarded_.starter, EVFILT_PROC, EV_ADD, NOTE_EXIT))) {
      end(guarded_.endsWithStarter, SIGKILL);
    }
    if (guarded_.limit.count() > 0) {
      watch(kernelEvent(0, EVFILT_TIMER, EV_ADD | EV_ONESHOT, NOTE_SECONDS, guarded_.limit.count()));
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
      end(guarded_.child, SIGALRM);
    }
    if (event.ident == static_cast<std::uintptr_t>(guarded_.starter)) {
      end(guarded_.endsWithStarter, SIGKILL);
    }
    ::_exit(EXIT_SUCCESS);
  }

  [[noreturn]] static void end(pid_t which, int signal) {
    ::kill(which, signal);
    ::_exit(EXIT_SUCCESS);
  }

  const Guarded& guarded_;
  int queue_ = -1;
};

}  // namespace

void waitBeside(const Guarded& guarded) { Guard(guarded).run(); }

}  // namespace tarnwell::system
