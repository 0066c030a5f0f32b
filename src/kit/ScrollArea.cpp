#include "kit/ScrollArea.h"

#include <algorithm>
#include <utility>

#include "kit/Host.h"

namespace tarnwell::kit {

void ScrollArea::setContentHeight(double height) {
  if (std::exchange(contentHeight_, height) != height) {
    offset_ = std::clamp(offset_, 0.0, std::max(0.0, contentHeight_ - bounds().height));
    changed(Aspect::value);
  }
}

void ScrollArea::scrollTo(double offset) {
  const double next = std::clamp(offset, 0.0, std::max(0.0, contentHeight_ - bounds().height));
  if (std::exchange(offset_, next) != next) {
    changed(Aspect::value);
  }
}

void ScrollArea::reveal(const Rect& rect) {
  if (rect.y < offset_) {
    scrollTo(rect.y);
  } else if (rect.bottom() > offset_ + bounds().height) {
    scrollTo(rect.bottom() - bounds().height);
  }
}

std::unique_ptr<Peer> ScrollArea::makePeer(Host& host, Peer& parent) { return host.peer(*this, parent); }

Measurement ScrollArea::measure(const TextMeasurer& /*text*/, Proposal proposal) const {
  return {.size = {.width = proposal.width.value_or(0), .height = proposal.height.value_or(contentHeight_)}};
}

}  // namespace tarnwell::kit
