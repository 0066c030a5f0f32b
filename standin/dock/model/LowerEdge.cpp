#include "standin/dock/model/LowerEdge.h"

#include <algorithm>

namespace tarnwell::standin {

void LowerEdge::enter(Point place, Size window) {
  last_ = place;
  move(place, window);
}

void LowerEdge::move(Point place, Size window) {
  window_ = window;
  before_ = last_;
  last_ = place;
  isReached_ = place.y >= window.height - height;
}

void LowerEdge::leave() { isReached_ = leavesBelow(); }

// The last place that was told may be well within the window. So it is where the next steps would lead that counts,
// each like the last one; in the strip it is which edge is nearest.
bool LowerEdge::leavesBelow() const {
  constexpr double steps = 2;
  const double toBottom = window_.height - last_.y;
  const double toSide = std::min(last_.x, window_.width - last_.x);
  if (isReached_) {
    return toBottom <= toSide;
  }
  const double down = last_.y - before_.y;
  const double x = last_.x + (down > 0 ? (last_.x - before_.x) * toBottom / down : 0);
  return down * steps >= toBottom && x >= 0 && x <= window_.width;
}

}  // namespace tarnwell::standin
