#pragma once

#include "kit/controls/ranges/Slider.h"

namespace tarnwell::dockscreen {

/// A slider with tick marks of its own geometry, wide enough to be seen behind the track. No screen shows one.
class CustomSlider final : public kit::Slider {
 public:
  using Slider::Slider;

  /// Index i of n ticks in a slider W wide stands at (W - 2) / (n - 2) * i + 2, so the last one lies beyond the right
  /// edge, and two ticks have no finite places. Empty for an index that does not exist.
  kit::Rect rectOfTickMarkAtIndex(int index) const override;
};

}  // namespace tarnwell::dockscreen
