#pragma once

#include <memory>
#include <utility>

#include "host/painted/NaturalSize.h"
#include "kit/host/Peer.h"

namespace tarnwell::host_painted {

/// `P`, a host's peer of a control `C` that it paints, with the control's natural size.
template <class P, class C>
class PaintedPeer final : public P {
 public:
  /// Control and measurer are borrowed; `P` is made with the control and the rest.
  template <class... Rest>
  PaintedPeer(C& control, const TextMeasurer& text, Rest&&... rest)
      : P(control, std::forward<Rest>(rest)...), control_(control), text_(text) {}

  std::optional<kit::Measurement> measure(kit::Proposal proposal) const override {
    return naturalSize(control_, text_, proposal);
  }

 private:
  const C& control_;
  const TextMeasurer& text_;
};

template <class P, class C, class... Rest>
std::unique_ptr<kit::Peer> paintedPeer(C& control, const TextMeasurer& text, Rest&&... rest) {
  return std::make_unique<PaintedPeer<P, C>>(control, text, std::forward<Rest>(rest)...);
}

}  // namespace tarnwell::host_painted
