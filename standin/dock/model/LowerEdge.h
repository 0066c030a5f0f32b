#pragma once

#include "standin/dock/model/Geometry.h"

namespace tarnwell::standin {

/// Whether the pointer is at the lower edge of a window, which does not stop it as that of a screen does: a strip
/// within the window counts, and so does what lies below the window until the pointer is in it again.
class LowerEdge {
 public:
  /// Of the strip, in points. What draws the window's frame may keep the last few for itself.
  static constexpr double height = 12;

  /// The pointer is in the window, in the window's coordinates.
  void enter(Point place, Size window);
  void move(Point place, Size window);

  /// It is no more; nothing tells where.
  void leave();

  bool isReached() const { return isReached_; }

 private:
  bool leavesBelow() const;

  Size window_;
  Point before_;
  Point last_;
  bool isReached_ = false;
};

}  // namespace tarnwell::standin
