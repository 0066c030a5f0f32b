#pragma once

#include "kit/host/Geometry.h"

namespace tarnwell::kit {
class Slider;
}

namespace tarnwell::host_painted {

/// Where the parts of a slider are painted, in its own coordinates, as if it stood upright. A slider that was never
/// placed is as large as it would like to be.
class SliderGeometry {
 public:
  /// The slider is borrowed.
  explicit SliderGeometry(const kit::Slider& slider) : slider_(slider) {}

  /// Where the knob's centre stands at a share of the track, from 0 to 1.
  double centreAt(double share) const;
  double knobCentre() const;

  /// Under the track, where the knob's centre would be; of one mark alone, in the middle.
  kit::Rect tickMark(int index) const;

  /// A place in the slider as it is seen on the screen, where it may be upside down, and back.
  kit::Point turned(kit::Point place) const;

  /// What the knob would stand for at a place on the screen; outside of the range beyond the ends of the track.
  double valueAt(kit::Point onScreen) const;

 private:
  kit::Size size() const;
  double trackLength() const;

  const kit::Slider& slider_;
};

}  // namespace tarnwell::host_painted
