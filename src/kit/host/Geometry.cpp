#include "kit/host/Geometry.h"

#include <cmath>

namespace tarnwell::kit {

Rect onWholePoints(const Rect& rect) {
  const double left = std::round(rect.x);
  const double top = std::round(rect.y);
  return {.x = left, .y = top, .width = std::round(rect.right()) - left, .height = std::round(rect.bottom()) - top};
}

}  // namespace tarnwell::kit
