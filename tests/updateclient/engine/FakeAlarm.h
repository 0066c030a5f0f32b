#pragma once

#include <optional>
#include <utility>

#include "updateclient/engine/Alarm.h"

namespace tarnwell::updateclient {

/// A clock that the test moves.
class FakeAlarm final : public Alarm {
 public:
  Clock::time_point now() const override { return now_ += tick_; }
  void set(Clock::time_point time, kit::Action action) override {
    time_ = time;
    action_ = std::move(action);
  }
  void cancel() override { time_.reset(); }

  /// When it rings; nothing when it is not set.
  std::optional<Clock::time_point> time() const { return time_; }

  /// From now on the clock goes on with every look at it, as a real one does.
  void goOn() { tick_ = std::chrono::microseconds(1); }
  void setClock(Clock::time_point now) { now_ = now; }
  /// Rings if the time has come.
  void ring() {
    if (time_ && *time_ <= now_) {
      time_.reset();
      const kit::Action action = std::exchange(action_, nullptr);
      action();
    }
  }
  void pass(Clock::duration duration) {
    now_ += duration;
    ring();
  }

 private:
  mutable Clock::time_point now_ = std::chrono::sys_days(std::chrono::year(2026) / 11 / 21);
  Clock::duration tick_ = {};
  std::optional<Clock::time_point> time_;
  kit::Action action_;
};

}  // namespace tarnwell::updateclient
