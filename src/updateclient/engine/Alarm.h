#pragma once

#include <chrono>

#include "kit/turn/Action.h"

namespace tarnwell::updateclient {

/// The time of day, and one call at a time to come.
class Alarm {
 public:
  using Clock = std::chrono::system_clock;

  virtual ~Alarm() = default;

  virtual Clock::time_point now() const = 0;
  /// Runs `action` once from the event loop when the clock has reached `time`, also when the clock was set or the
  /// machine slept. Replaces what was set before.
  virtual void set(Clock::time_point time, kit::Action action) = 0;
  virtual void cancel() = 0;
};

}  // namespace tarnwell::updateclient
