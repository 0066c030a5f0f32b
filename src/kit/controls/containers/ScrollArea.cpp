#include "kit/controls/containers/ScrollArea.h"

#include <algorithm>
#include <utility>

namespace tarnwell::kit {

void ScrollArea::setContentHeight(double height) {
  const bool changesHeight = std::exchange(contentHeight_, height) != height;
  const double next = held(offset_);
  const bool movesOffset = std::exchange(offset_, next) != next;
  if (changesHeight || movesOffset) {
    changed(Aspect::value);
  }
}

void ScrollArea::scrollTo(double offset) { set(offset_, held(offset), Aspect::value); }

void ScrollArea::reveal(const Rect& rect) {
  if (rect.y < offset_) {
    scrollTo(rect.y);
  } else if (rect.bottom() > offset_ + bounds().height) {
    scrollTo(rect.bottom() - bounds().height);
  }
}

Measurement ScrollArea::sizeThatFits(Proposal proposal) const {
  return {.size = {.width = proposal.width.value_or(0), .height = proposal.height.value_or(contentHeight_)}};
}

double ScrollArea::held(double offset) const {
  return std::clamp(offset, 0.0, std::max(0.0, contentHeight_ - bounds().height));
}

}  // namespace tarnwell::kit
