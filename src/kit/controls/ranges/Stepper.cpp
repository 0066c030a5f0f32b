#include "kit/controls/ranges/Stepper.h"

#include <algorithm>
#include <cmath>

namespace tarnwell::kit {

void Stepper::setValue(double value) {
  // Two values that are no numbers look alike.
  const bool alike = value == value_ || (std::isnan(value) && std::isnan(value_));
  value_ = value;
  if (!alike) {
    changed(Aspect::value);
  }
}

void Stepper::choose(double value) {
  if (!isEnabled() || std::isnan(value)) {
    refuse();
    return;
  }
  value_ = std::clamp(value, range_.least, range_.most);
  changed(Aspect::value);
  send(deferred(action_, value_));
}

int Stepper::repeatDelay(int steps) {
  constexpr int first = 400;
  constexpr int longest = 100;
  constexpr int shortest = 12;
  constexpr double faster = 0.94;
  return steps <= 1 ? first : std::max(shortest, static_cast<int>(longest * std::pow(faster, steps - 2)));
}

Accessible Stepper::ownAccessible() const {
  return {.role = AccessibleRole::stepper,
          .value = value_,
          .range = AccessibleRange{.least = range_.least, .most = range_.most, .step = range_.step},
          .actions = {AccessibleAction::increment, AccessibleAction::decrement, AccessibleAction::setValue}};
}

}  // namespace tarnwell::kit
