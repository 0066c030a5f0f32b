#include "kit/controls/ranges/ProgressBar.h"

#include <algorithm>
#include <cmath>

namespace tarnwell::kit {

void ProgressBar::setShare(std::optional<double> share) {
  const bool isKnown = share && !std::isnan(*share);
  set(share_, isKnown ? std::optional(std::clamp(*share, 0.0, 1.0)) : std::nullopt, Aspect::value);
}

Accessible ProgressBar::ownAccessible() const {
  if (!share_) {
    return {.role = AccessibleRole::progressBar};
  }
  return {.role = AccessibleRole::progressBar,
          .value = *share_,
          .range = AccessibleRange{.least = 0, .most = 1, .step = 0}};
}

}  // namespace tarnwell::kit
