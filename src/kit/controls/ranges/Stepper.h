#pragma once

#include <functional>

#include "kit/control/Control.h"

namespace tarnwell::kit {

/// Two small arrows that move a value up and down.
class Stepper final : public Control {
 public:
  using StepAction = std::function<void(double)>;

  struct Range {
    double least = 0;
    double most = 100;
    double step = 1;
    friend bool operator==(const Range&, const Range&) = default;
  };

  const Range& range() const { return range_; }
  void setRange(const Range& range) { range_ = range; }

  /// As set, within the range or not; only what the user does is held to it.
  double value() const { return value_; }
  void setValue(double value);

  void setAction(StepAction action) { action_ = std::move(action); }

  // The user's doing.

  void increment() { choose(value_ + range_.step); }
  void decrement() { choose(value_ - range_.step); }
  /// Held to the range.
  void choose(double value);

  /// How long to wait, while an arrow is held, after that many steps, in milliseconds: long before the first repeat,
  /// then less and less.
  static int repeatDelay(int steps);

  AnyControl any() override { return this; }
  bool takesFocus() const override { return true; }

 protected:
  Accessible ownAccessible() const override;
  void act(const AccessibleRequest& request) override { choose(valueAfter(request, value_, range_.step)); }
  std::vector<Aspect> aspects() const override { return {Aspect::value}; }

 private:
  StepAction action_;
  Range range_;
  double value_ = 0;
};

}  // namespace tarnwell::kit
