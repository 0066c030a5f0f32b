#pragma once

#include "kit/host/Host.h"

namespace tarnwell::host_macos {

/// AppKit's own windows and controls, placed where the views' layout says.
class MacHost final : public kit::Host {
 public:
  std::unique_ptr<kit::WindowPeer> peer(kit::Window& window) override;
  std::unique_ptr<kit::Peer> peer(kit::AnyControl control, kit::Peer& parent) override;
  kit::Rect rectOfTickMark(const kit::Slider& slider, int index) const override;
};

}  // namespace tarnwell::host_macos
