#include <fcntl.h>

#include <algorithm>
#include <cerrno>

#include "system/base/Fault.h"
#include "system/events/KernelQueueMac.h"
#include "system/events/Timer.h"

// From <notify.h>, which is not among the headers that are published.
extern "C" std::uint32_t notify_register_file_descriptor(const char* name, int* descriptor, int flags, int* token);

namespace tarnwell::system {
namespace {

/// Gets a few bytes whenever the clock is set; -1 where the system does not tell. One for all timers, so none reads it.
int clockChanges() {
  static const int changes = [] {
    int descriptor = -1;
    int token = 0;
    ::notify_register_file_descriptor("com.apple.system.clock_set", &descriptor, 0, &token);
    ::fcntl(descriptor, F_SETFD, FD_CLOEXEC);
    return descriptor;
  }();
  return changes;
}

}  // namespace

Timer::Timer() : descriptor_(makeKernelQueue()) {
  if (!descriptor_) {
    fault("make a timer", errno);
  }
  changeKernelQueue(descriptor_, kernelEvent(clockChanges(), EVFILT_READ, EV_ADD | EV_CLEAR));
}

void Timer::disarm() const { changeKernelQueue(descriptor_, kernelEvent(0, EVFILT_TIMER, EV_DELETE)); }

bool Timer::hear() const { return !takeFromKernelQueue(descriptor_, 2).empty(); }

// The system makes a span of time of it, which a clock that is set leaves as it is.
void Timer::arm() const {
  const auto since = std::chrono::nanoseconds(time_.time_since_epoch()).count();
  constexpr unsigned notes = NOTE_ABSOLUTE | NOTE_NSECONDS | NOTE_MACH_CONTINUOUS_TIME;
  if (!changeKernelQueue(descriptor_,
                         kernelEvent(0, EVFILT_TIMER, EV_ADD | EV_ONESHOT, notes, std::max<std::intptr_t>(since, 1)))) {
    fault("set a timer", errno);
  }
}

}  // namespace tarnwell::system
