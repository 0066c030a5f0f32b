#pragma once

#include "kit/host/Host.h"

namespace tarnwell::host_macos {

/// AppKit's own windows and controls, placed where the views' layout says.
class MacHost final : public kit::Host {
 public:
  std::unique_ptr<kit::WindowPeer> peer(kit::Window& window) override;
  std::unique_ptr<kit::Peer> peer(kit::Box& box, kit::Peer& parent) override;
  std::unique_ptr<kit::Peer> peer(kit::Button& button, kit::Peer& parent) override;
  std::unique_ptr<kit::Peer> peer(kit::Pane& pane, kit::Peer& parent) override;
  std::unique_ptr<kit::Peer> peer(kit::PopUpButton& button, kit::Peer& parent) override;
  std::unique_ptr<kit::Peer> peer(kit::ProgressBar& bar, kit::Peer& parent) override;
  std::unique_ptr<kit::Peer> peer(kit::RichText& text, kit::Peer& parent) override;
  std::unique_ptr<kit::Peer> peer(kit::ScrollArea& area, kit::Peer& parent) override;
  std::unique_ptr<kit::Peer> peer(kit::Slider& slider, kit::Peer& parent) override;
  std::unique_ptr<kit::Peer> peer(kit::Stepper& stepper, kit::Peer& parent) override;
  std::unique_ptr<kit::Peer> peer(kit::SymbolView& symbol, kit::Peer& parent) override;
  std::unique_ptr<kit::Peer> peer(kit::TabBar& bar, kit::Peer& parent) override;
  std::unique_ptr<kit::Peer> peer(kit::TextField& field, kit::Peer& parent) override;
  std::unique_ptr<kit::Peer> peer(kit::TextLabel& label, kit::Peer& parent) override;
  std::unique_ptr<kit::Peer> peer(kit::Toggle& toggle, kit::Peer& parent) override;
  kit::Rect rectOfTickMark(const kit::Slider& slider, int index) const override;
};

}  // namespace tarnwell::host_macos
