#pragma once

#include <ostream>

#include "kit/host/Geometry.h"

namespace tarnwell::kit {

// How a failed comparison shows the values.
// NOLINTBEGIN(readability-identifier-naming): the framework looks for this name

inline void PrintTo(const Size& size, std::ostream* out) { *out << size.width << " x " << size.height; }

inline void PrintTo(const Rect& rect, std::ostream* out) {
  *out << rect.width << " x " << rect.height << " at " << rect.x << ", " << rect.y;
}

// NOLINTEND(readability-identifier-naming)

}  // namespace tarnwell::kit
