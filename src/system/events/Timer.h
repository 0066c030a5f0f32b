#pragma once

#include <chrono>

#include "system/base/Descriptor.h"

namespace tarnwell::system {

/// Makes its descriptor readable at a time of day to come. Nothing wakes up before that, unless the clock is set.
class Timer {
 public:
  using Clock = std::chrono::system_clock;

  Timer();

  /// The same for the timer's whole life.
  int descriptor() const { return descriptor_.number(); }

  /// Replaces what was set before. A time that has passed counts as now.
  void set(Clock::time_point time);
  void cancel();

  /// To be called when the descriptor can be read: whether the time has come. Where it has not, since the clock was set
  /// or by chance, the timer goes on.
  bool isDue();

 private:
  void arm() const;
  void disarm() const;
  /// Takes what the system says of the time: that it has come, or that the clock was set.
  bool hear() const;

  Descriptor descriptor_;
  Clock::time_point time_ = {};
  bool isSet_ = false;
};

}  // namespace tarnwell::system
