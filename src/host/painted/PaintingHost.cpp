#include "host/painted/PaintingHost.h"

#include "host/painted/SliderGeometry.h"

namespace tarnwell::host_painted {

kit::Rect PaintingHost::rectOfTickMark(const kit::Slider& slider, int index) const {
  return SliderGeometry(slider).tickMark(index);
}

}  // namespace tarnwell::host_painted
