#pragma once

#include <algorithm>

namespace tarnwell::standin {

inline double mixed(double from, double to, double share) { return from + (to - from) * share; }

/// From 0 to 1, slow at both ends; what lies outside is cut off.
inline double smooth(double share) {
  const double inside = std::clamp(share, 0.0, 1.0);
  return inside * inside * (3 - 2 * inside);
}

}  // namespace tarnwell::standin
