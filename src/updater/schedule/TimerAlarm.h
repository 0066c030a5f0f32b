#pragma once

#include "system/Descriptor.h"
#include "updater/schedule/Alarm.h"

namespace tarnwell::updater {

/// An alarm on the system's clock. Nothing wakes up before the time has come, unless the clock is set.
class TimerAlarm final : public Alarm {
 public:
  TimerAlarm();

  Clock::time_point now() const override { return Clock::now(); }
  void set(Clock::time_point time, kit::Action action) override;
  void cancel() override;

  /// Readable when `dispatch` has something to do. The same for the alarm's whole life.
  int descriptor() const { return timer_.number(); }
  /// Runs what is due; what that sets anew is run by a later call. It may end the alarm.
  void dispatch();

 private:
  void arm();

  system::Descriptor timer_;
  Clock::time_point time_ = {};
  kit::Action action_;
};

}  // namespace tarnwell::updater
