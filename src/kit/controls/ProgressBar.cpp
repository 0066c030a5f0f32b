#include "kit/controls/ProgressBar.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "kit/host/Host.h"

namespace tarnwell::kit {

void ProgressBar::setShare(std::optional<double> share) {
  const bool isKnown = share && !std::isnan(*share);
  const auto next = isKnown ? std::optional(std::clamp(*share, 0.0, 1.0)) : std::nullopt;
  if (std::exchange(share_, next) != next) {
    changed(Aspect::value);
  }
}

std::unique_ptr<Peer> ProgressBar::makePeer(Host& host, Peer& parent) { return host.peer(*this, parent); }

Accessible ProgressBar::ownAccessible() const {
  if (!share_) {
    return {.role = AccessibleRole::progressBar};
  }
  return {.role = AccessibleRole::progressBar,
          .value = *share_,
          .range = AccessibleRange{.least = 0, .most = 1, .step = 0}};
}

}  // namespace tarnwell::kit
