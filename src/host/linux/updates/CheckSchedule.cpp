#include "host/linux/updates/CheckSchedule.h"

#include <utility>

#include "host/linux/updates/Report.h"

namespace tarnwell::host_linux::updates {

Alarm::Clock::time_point CheckSchedule::nextCheck() const {
  const auto now = alarm_.now();
  const auto last = unstoredCheck_ ? unstoredCheck_ : preferences_.lastCheck();
  // A check in the future was made under a wrong clock, which says nothing about when it was.
  return !last || *last > now ? now : *last + preferences_.interval();
}

bool CheckSchedule::isDue() const { return isOn() && nextCheck() <= alarm_.now(); }

void CheckSchedule::noteCheck() {
  const auto now = alarm_.now();
  const auto failure = preferences_.setLastCheck(now);
  report(failure);
  unstoredCheck_ = failure ? std::optional(now) : std::nullopt;
}

void CheckSchedule::set(kit::Action wake) {
  if (isOn()) {
    alarm_.set(nextCheck(), std::move(wake));
  } else {
    alarm_.cancel();
  }
}

}  // namespace tarnwell::host_linux::updates
