#pragma once

#include <optional>

#include "kit/turn/Action.h"
#include "updateclient/engine/Alarm.h"
#include "updateclient/settings/UpdaterPreferences.h"

namespace tarnwell::updateclient {

/// When to look for new versions without being asked: an interval after the last check, whether that one was asked for
/// or not, and whichever run of the program made it.
class CheckSchedule {
 public:
  /// The alarm is borrowed.
  CheckSchedule(UpdaterPreferences preferences, Alarm& alarm) : preferences_(std::move(preferences)), alarm_(alarm) {}

  /// Whether checks are switched on and one is due by now.
  bool isDue() const;
  /// A check begins now.
  void noteCheck();
  /// Sets the alarm for the next check, or none where checks are switched off.
  void set(kit::Action wake);

 private:
  bool isOn() const { return preferences_.automaticChecks().value_or(false); }
  Alarm::Clock::time_point nextCheck(Alarm::Clock::time_point now) const;

  UpdaterPreferences preferences_;
  Alarm& alarm_;
  /// The last one of this run. It need not have come to be stored, and must not be made again and again for that.
  std::optional<Alarm::Clock::time_point> ownCheck_;
};

}  // namespace tarnwell::updateclient
