#include <sys/timerfd.h>

#include <algorithm>
#include <cerrno>

#include "system/base/Fault.h"
#include "system/events/Timer.h"

namespace tarnwell::system {
namespace {

// Zero would disarm the timer; a time in the past goes off at once.
itimerspec at(Timer::Clock::time_point time) {
  using std::chrono::nanoseconds;
  using std::chrono::seconds;
  const auto since = std::max<nanoseconds>(time.time_since_epoch(), nanoseconds(1));
  const auto whole = std::chrono::floor<seconds>(since);
  return {.it_interval = {}, .it_value = {.tv_sec = whole.count(), .tv_nsec = (since - whole).count()}};
}

}  // namespace

Timer::Timer()
    : descriptor_(requiredDescriptor(::timerfd_create(CLOCK_REALTIME, TFD_CLOEXEC | TFD_NONBLOCK), "make a timer")) {}

void Timer::disarm() const {
  const itimerspec never = {};
  ::timerfd_settime(descriptor_.number(), 0, &never, nullptr);
}

bool Timer::hear() const {
  // Fails when the clock was set: then the time may have come, or be farther away than before.
  return descriptor_.readPart() || errno == ECANCELED;
}

void Timer::arm() const {
  const itimerspec due = at(time_);
  // The call reports, too, that the clock was set since the last one; the timer is armed all the same.
  if (::timerfd_settime(descriptor_.number(), TFD_TIMER_ABSTIME | TFD_TIMER_CANCEL_ON_SET, &due, nullptr) != 0 &&
      errno != ECANCELED) {
    fault("set a timer", errno);
  }
}

}  // namespace tarnwell::system
