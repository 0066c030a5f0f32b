#include "host/macos/MacHost.h"

#include "host/macos/controls/Container.h"
#include "host/macos/controls/ControlPeers.h"
#include "host/macos/window/WindowPeer.h"
#include "kit/controls/Slider.h"

namespace tarnwell::host_macos {

std::unique_ptr<kit::WindowPeer> MacHost::peer(kit::Window& window) { return std::make_unique<WindowPeer>(window); }

std::unique_ptr<kit::Peer> MacHost::peer(kit::Box& box, kit::Peer& parent) {
  return makePeer(box, Container::contentOf(parent));
}

std::unique_ptr<kit::Peer> MacHost::peer(kit::Button& button, kit::Peer& parent) {
  return makePeer(button, Container::contentOf(parent));
}

std::unique_ptr<kit::Peer> MacHost::peer(kit::Pane& pane, kit::Peer& parent) {
  return makePeer(pane, Container::contentOf(parent));
}

std::unique_ptr<kit::Peer> MacHost::peer(kit::PopUpButton& button, kit::Peer& parent) {
  return makePeer(button, Container::contentOf(parent));
}

std::unique_ptr<kit::Peer> MacHost::peer(kit::ProgressBar& bar, kit::Peer& parent) {
  return makePeer(bar, Container::contentOf(parent));
}

std::unique_ptr<kit::Peer> MacHost::peer(kit::RichText& text, kit::Peer& parent) {
  return makePeer(text, Container::contentOf(parent));
}

std::unique_ptr<kit::Peer> MacHost::peer(kit::ScrollArea& area, kit::Peer& parent) {
  return makePeer(area, Container::contentOf(parent));
}

std::unique_ptr<kit::Peer> MacHost::peer(kit::Slider& slider, kit::Peer& parent) {
  return makePeer(slider, Container::contentOf(parent));
}

std::unique_ptr<kit::Peer> MacHost::peer(kit::Stepper& stepper, kit::Peer& parent) {
  return makePeer(stepper, Container::contentOf(parent));
}

std::unique_ptr<kit::Peer> MacHost::peer(kit::SymbolView& symbol, kit::Peer& parent) {
  return makePeer(symbol, Container::contentOf(parent));
}

std::unique_ptr<kit::Peer> MacHost::peer(kit::TabBar& bar, kit::Peer& parent) {
  return makePeer(bar, Container::contentOf(parent));
}

std::unique_ptr<kit::Peer> MacHost::peer(kit::TextField& field, kit::Peer& parent) {
  return makePeer(field, Container::contentOf(parent));
}

std::unique_ptr<kit::Peer> MacHost::peer(kit::TextLabel& label, kit::Peer& parent) {
  return makePeer(label, Container::contentOf(parent));
}

std::unique_ptr<kit::Peer> MacHost::peer(kit::Toggle& toggle, kit::Peer& parent) {
  return makePeer(toggle, Container::contentOf(parent));
}

kit::Rect MacHost::rectOfTickMark(const kit::Slider& slider, int index) const {
  return host_macos::rectOfTickMark(slider, index);
}

}  // namespace tarnwell::host_macos
