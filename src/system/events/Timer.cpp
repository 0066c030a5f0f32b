#include "system/events/Timer.h"

namespace tarnwell::system {

void Timer::set(Clock::time_point time) {
  time_ = time;
  isSet_ = true;
  arm();
}

void Timer::cancel() {
  isSet_ = false;
  disarm();
}

bool Timer::isDue() {
  if (!hear() || !isSet_) {
    return false;
  }
  isSet_ = Clock::now() < time_;
  if (isSet_) {
    arm();
  }
  return !isSet_;
}

}  // namespace tarnwell::system
