#pragma once

#include <algorithm>
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

  /// 0 on the shelf, 1 at the top: as of what is thrown straight up, fast at both ends and slow at the top.
  double height(Time now) const { return 4 * share(now) * (1 - share(now)); }

  /// Whether the next frame differs from this one.
  bool isMoving(Time now) const { return share(now) < 1; }

 private:
  double share(Time now) const { return begin_ ? std::clamp(Seconds(now - *begin_) / duration, 0.0, 1.0) : 1; }

  std::optional<Time> begin_;
};

}  // namespace tarnwell::standin
