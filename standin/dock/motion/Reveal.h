#pragma once

#include <chrono>
#include <optional>

namespace tarnwell::standin {

enum class PointerPlace { elsewhere, atEdge, onDock };

/// When a dock that hides is to be seen, and how much of it. Everything follows from the times that are handed in, so
/// late calls make no animation longer. It starts shown, as a greeting, and hides after that.
class Reveal {
 public:
  using Clock = std::chrono::steady_clock;
  using Time = Clock::time_point;
  using Seconds = std::chrono::duration<double>;

  /// How long a dock that was just started stays although the pointer is elsewhere.
  static constexpr Seconds greeting{2.0};
  /// How long the pointer may be away before the dock hides: a slip of the hand is not meant.
  static constexpr Seconds patience{0.1};

  /// What a setting stands for: what is negative or no number counts as zero, and an hour is the most.
  static Seconds usable(Seconds seconds);

  /// `delay` is how long the pointer must be at the edge, `duration` how long the way between hidden and shown takes;
  /// both as far as they are usable.
  Reveal(Seconds delay, Seconds duration, Time now);

  void setPointer(PointerPlace place, Time now);

  /// Something on the screen needs the dock: it comes at once and stays.
  void setHeld(bool held, Time now);

  /// 0 when hidden, 1 when shown. Never goes back for times that grow, unless the direction changes.
  double shown(Time now);

  /// Whether the next frame differs from this one.
  bool isMoving(Time now);

  /// When to ask again although nothing has happened; nothing when only an event can change anything.
  std::optional<Time> deadline() const { return deadline_; }

 private:
  bool isWanted() const { return held_ || place_ != PointerPlace::elsewhere; }
  void advance(Time now);
  void plan(Time now);
  void turn(double direction, Time now);
  double position(Time now) const;

  Seconds delay_;
  Seconds duration_;
  PointerPlace place_ = PointerPlace::elsewhere;
  bool held_ = false;
  double direction_ = 0;  // 1 on the way in, -1 on the way out
  double from_ = 1;       // the position when the direction was taken
  Time since_;
  std::optional<Time> deadline_;
};

}  // namespace tarnwell::standin
