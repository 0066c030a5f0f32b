#include "updater/schedule/TimerAlarm.h"

#include <sys/timerfd.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstdint>
#include <utility>

#include "system/Descriptor.h"
#include "system/Fault.h"

namespace tarnwell::updater {
namespace {

// Zero would disarm the timer; a time in the past goes off at once.
itimerspec at(Alarm::Clock::time_point time) {
  using std::chrono::nanoseconds;
  using std::chrono::seconds;
  const auto since = std::max<nanoseconds>(time.time_since_epoch(), nanoseconds(1));
  const auto whole = std::chrono::floor<seconds>(since);
  return {.it_interval = {}, .it_value = {.tv_sec = whole.count(), .tv_nsec = (since - whole).count()}};
}

}  // namespace

TimerAlarm::TimerAlarm()
    : timer_(system::requiredDescriptor(::timerfd_create(CLOCK_REALTIME, TFD_CLOEXEC | TFD_NONBLOCK), "make a timer")) {
}

void TimerAlarm::set(Clock::time_point time, kit::Action action) {
  time_ = time;
  action_ = std::move(action);
  arm();
}

void TimerAlarm::cancel() {
  action_ = nullptr;
  const itimerspec never = {};
  ::timerfd_settime(timer_.number(), 0, &never, nullptr);
}

void TimerAlarm::dispatch() {
  std::uint64_t expirations = 0;
  // Fails when the clock was set: then the time may have come, or be farther away than before.
  if (::read(timer_.number(), &expirations, sizeof expirations) < 0 && errno != ECANCELED) {
    return;
  }
  if (!action_) {
    return;
  }
  if (now() < time_) {
    arm();
    return;
  }
  const kit::Action action = std::exchange(action_, nullptr);
  action();
}

void TimerAlarm::arm() {
  const itimerspec due = at(time_);
  // The call reports, too, that the clock was set since the last one; the timer is armed all the same.
  if (::timerfd_settime(timer_.number(), TFD_TIMER_ABSTIME | TFD_TIMER_CANCEL_ON_SET, &due, nullptr) != 0 &&
      errno != ECANCELED) {
    system::fault("set a timer", errno);
  }
}

}  // namespace tarnwell::updater
