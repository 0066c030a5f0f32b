#pragma once

#include "standin/dock/model/Geometry.h"
#include "standin/dock/motion/MinimizeEffect.h"

namespace tarnwell::standin {

/// How a window is bent on its way into the dock. A pure function: at progress 0 the picture lies on the window, at 1
/// all of it lies on or in the icon.
class Warp {
 public:
  /// The icon lies below the window, or at least its middle does.
  Warp(MinimizeEffect effect, Rectangle window, Rectangle icon);

  /// Where the point of the picture is that lies `u` of its width from the left and `v` of its height from the top.
  Point at(double u, double v, double progress) const;

 private:
  Point genieAt(double u, double v, double progress) const;
  Point scaleAt(double u, double v, double progress) const;
  Point suckAt(double u, double v, double progress) const;

  MinimizeEffect effect_;
  Rectangle window_;
  Rectangle icon_;
};

}  // namespace tarnwell::standin
