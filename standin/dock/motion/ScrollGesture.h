#pragma once

namespace tarnwell::standin {

/// Turns what a wheel says into movements of the hand: scrolling up acts once in each, however long it goes on.
class ScrollGesture {
 public:
  /// What follows the step before it sooner, in milliseconds, belongs to the same movement.
  static constexpr unsigned long pause = 250;

  /// How far has to be scrolled up before it counts, in the toolkit's eighths of a degree: one notch of a wheel.
  static constexpr int notch = 120;

  /// Takes a step of the wheel, upwards when it is positive, at a time in milliseconds. True when the movement acts
  /// now.
  bool step(int upwards, unsigned long time);

 private:
  unsigned long last_ = 0;
  int scrolled_ = 0;
  bool hasActed_ = false;
};

}  // namespace tarnwell::standin
