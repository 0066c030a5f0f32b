#include "standin/dock/motion/ScrollGesture.h"

#include <algorithm>
#include <utility>

namespace tarnwell::standin {

bool ScrollGesture::step(int upwards, unsigned long time) {
  if (time - std::exchange(last_, time) >= pause) {
    scrolled_ = 0;
    hasActed_ = false;
  }
  scrolled_ = std::max(scrolled_ + upwards, 0);
  if (hasActed_ || scrolled_ < notch) {
    return false;
  }
  hasActed_ = true;
  return true;
}

}  // namespace tarnwell::standin
