#include "host/macos/MacHost.h"

#include "host/macos/controls/Container.h"
#include "host/macos/controls/ControlPeers.h"
#include "host/macos/window/WindowPeer.h"
#include "kit/controls/ranges/Slider.h"

namespace tarnwell::host_macos {

std::unique_ptr<kit::WindowPeer> MacHost::peer(kit::Window& window) { return std::make_unique<WindowPeer>(window); }

std::unique_ptr<kit::Peer> MacHost::peer(kit::AnyControl control, kit::Peer& parent) {
  NSView* view = Container::contentOf(parent);
  return std::visit([view](auto* each) { return makePeer(*each, view); }, control);
}

kit::Rect MacHost::rectOfTickMark(const kit::Slider& slider, int index) const {
  return host_macos::rectOfTickMark(slider, index);
}

}  // namespace tarnwell::host_macos
