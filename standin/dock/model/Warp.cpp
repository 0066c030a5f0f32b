#include "standin/dock/model/Warp.h"

#include <algorithm>
#include <cmath>

#include "standin/dock/motion/Easing.h"

namespace tarnwell::standin {

Warp::Warp(MinimizeEffect effect, Rectangle window, Rectangle icon) : effect_(effect), window_(window), icon_(icon) {}

Point Warp::at(double u, double v, double progress) const {
  switch (effect_) {
    case MinimizeEffect::scale:
      return scaleAt(u, v, progress);
    case MinimizeEffect::suck:
      return suckAt(u, v, progress);
    case MinimizeEffect::genie:
      break;
  }
  return genieAt(u, v, progress);
}

// First the lower edge reaches down and both sides bend into a funnel that ends in the icon. Then the rows slide
// through the funnel, which stands still.
Point Warp::genieAt(double u, double v, double progress) const {
  constexpr double bendEnd = 0.45;
  constexpr double slideStart = 0.25;
  const double end = icon_.center().y;
  const double fall = end - window_.y;
  const double bend = smooth(progress / bendEnd);
  const double slide = smooth((progress - slideStart) / (1 - slideStart));
  const double length = mixed(window_.height, fall, bend);
  const double y = std::min(window_.y + v * length + slide * fall, end);
  const double depth = fall > 0 ? (y - window_.y) / fall : 1;
  // Half of a cosine's way down: upright where it leaves the window, and upright again where it enters the icon.
  const double narrowing = smooth(depth) * bend;
  const double left = mixed(window_.x, icon_.x, narrowing);
  const double right = mixed(window_.right(), icon_.right(), narrowing);
  return {mixed(left, right, u), y};
}

// The rectangle goes straight to the icon and stays a rectangle; it sets off and arrives gently.
Point Warp::scaleAt(double u, double v, double progress) const {
  const double way = smooth(progress);
  return {mixed(window_.x + u * window_.width, icon_.x + u * icon_.width, way),
          mixed(window_.y + v * window_.height, icon_.y + v * icon_.height, way)};
}

// One lower corner, the one on the icon's side, is drawn into the middle of the icon. What is near to it follows soon,
// the opposite corner comes last, and what lies between is stretched.
Point Warp::suckAt(double u, double v, double progress) const {
  constexpr double lag = 1.1;
  const bool goesRight = icon_.center().x > window_.center().x;
  const double across = goesRight ? 1 - u : u;
  const double distance = std::hypot(across, 1 - v) / std::sqrt(2.0);
  const double share = std::clamp(progress * (1 + lag) - distance * lag, 0.0, 1.0);
  const double pull = share * share * (2 - share);  // sets off slowly and arrives with speed
  const Point end = icon_.center();
  return {mixed(window_.x + u * window_.width, end.x, pull), mixed(window_.y + v * window_.height, end.y, pull)};
}

}  // namespace tarnwell::standin
