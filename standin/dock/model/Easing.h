#pragma once

#include <algorithm>

namespace tarnwell::standin {

inline double mixed(double from, double to, double share) { return from + (to - from) * share; }

/// From 0 to 1, slow at both ends; what lies outside is cut off.
inline double smooth(double share) {
  const double inside = std::clamp(share, 0.0, 1.0);
  return inside * inside * (3 - 2 * inside);
}

/// From 0 up to 1 in the middle and down again, as what is thrown straight up: fast at both ends, slow at the top.
inline double thrown(double share) {
  const double inside = std::clamp(share, 0.0, 1.0);
  return 4 * inside * (1 - inside);
}

}  // namespace tarnwell::standin
