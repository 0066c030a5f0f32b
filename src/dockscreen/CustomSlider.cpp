#include "dockscreen/CustomSlider.h"

namespace tarnwell::dockscreen {

kit::Rect CustomSlider::rectOfTickMarkAtIndex(int index) const {
  const int count = numberOfTickMarks();
  if (count < 1 || index < 0 || index >= count) {
    return {};
  }
  const double spacing = (bounds().width - 2) / static_cast<double>(count - 2);
  return {.x = spacing * index + 2, .y = 5, .width = 2, .height = 16};
}

}  // namespace tarnwell::dockscreen
