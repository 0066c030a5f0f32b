#include "kit/host/Geometry.h"

#include <cmath>

namespace tarnwell::kit {

Rect onWholePoints(const Rect& rect) {
  const double left = std::round(rect.x);
  const double top = std::round(rect.y);
  return {.x = left, .y = top, .width = std::round(rect.right()) - left, .height = std::round(rect.bottom()) - top};
}

Point turnedAboutCentre(Point point, Size size, double radians) {
  const double centreX = size.width / 2;
  const double centreY = size.height / 2;
  const double dx = point.x - centreX;
  const double dy = point.y - centreY;
  const double cosine = std::cos(radians);
  const double sine = std::sin(radians);
  return {.x = centreX + dx * cosine - dy * sine, .y = centreY + dx * sine + dy * cosine};
}

}  // namespace tarnwell::kit
