#include "updateclient/settings/CheckSchedule.h"

#include <algorithm>
#include <utility>

#include "release/text/Report.h"

namespace tarnwell::updateclient {

Alarm::Clock::time_point CheckSchedule::nextCheck(Alarm::Clock::time_point now) const {
  std::optional<Alarm::Clock::time_point> last;
  for (const auto& check : {preferences_.lastCheck(), ownCheck_}) {
    // A check in the future was made under a wrong clock, which says nothing about when it was.
    if (check && *check <= now) {
      last = std::max(last, check);
    }
  }
  return last ? *last + preferences_.interval() : now;
}

bool CheckSchedule::isDue() const {
  // One look at the clock: it goes on between two.
  const auto now = alarm_.now();
  return isOn() && nextCheck(now) <= now;
}

void CheckSchedule::noteCheck() {
  ownCheck_ = alarm_.now();
  release::report(preferences_.setLastCheck(*ownCheck_));
}

void CheckSchedule::set(kit::Action wake) {
  if (isOn()) {
    alarm_.set(nextCheck(alarm_.now()), std::move(wake));
  } else {
    alarm_.cancel();
  }
}

}  // namespace tarnwell::updateclient
