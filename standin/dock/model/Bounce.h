#pragma once

#include <chrono>
#include <optional>

namespace tarnwell::standin {

/// The one jump of an icon whose application is launched. Everything follows from the times that are handed in.
class Bounce {
 public:
  using Clock = std::chrono::steady_clock;
  using Time = Clock::time_point;
  using Seconds = std::chrono::duration<double>;

  static constexpr Seconds duration{0.6};

  /// At rest.
  Bounce() = default;
  explicit Bounce(Time begin) : begin_(begin) {}

  /// 0 on the shelf, 1 at the top.
  double height(Time now) const;

  /// Whether the next frame differs from this one.
  bool isMoving(Time now) const;

 private:
  double share(Time now) const;

  std::optional<Time> begin_;
};

}  // namespace tarnwell::standin
