#pragma once

#include "host/painted/SliderGeometry.h"
#include "host/painted/TextMeasurer.h"
#include "kit/host/Host.h"

namespace tarnwell::host_painted {

/// A host that paints its controls itself.
class PaintingHost : public kit::Host, public TextMeasurer {
 public:
  kit::Rect rectOfTickMark(const kit::Slider& slider, int index) const override {
    return SliderGeometry(slider).tickMark(index);
  }
};

}  // namespace tarnwell::host_painted
