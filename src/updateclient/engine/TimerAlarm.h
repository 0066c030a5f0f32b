#pragma once

#include <utility>

#include "system/events/Timer.h"
#include "updateclient/engine/Alarm.h"
#include "updateclient/engine/Watch.h"

namespace tarnwell::updateclient {

/// An alarm on the system's clock.
class TimerAlarm final : public Alarm {
 public:
  explicit TimerAlarm(const Watch& watch) : watching_(watch(timer_.descriptor(), [this] { ring(); })) {}

  Clock::time_point now() const override { return Clock::now(); }
  void set(Clock::time_point time, kit::Action action) override {
    action_ = std::move(action);
    timer_.set(time);
  }
  void cancel() override { timer_.cancel(); }

 private:
  // It may end the alarm.
  void ring() {
    if (timer_.isDue()) {
      const kit::Action action = std::exchange(action_, nullptr);
      action();
    }
  }

  system::Timer timer_;
  kit::Action action_;
  kit::Subscription watching_;
};

}  // namespace tarnwell::updateclient
