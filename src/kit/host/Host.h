#pragma once

#include <memory>

#include "kit/host/AnyControl.h"
#include "kit/host/Peer.h"
#include "kit/host/WindowPeer.h"

namespace tarnwell::kit {

class Window;

/// All that a toolkit must do.
///
/// What the user does a host reports by the operations that say so at each control and at `Window`. A platform's own
/// control, which has changed by then, reports the value that it has: `choose`, `type`, `scrolled`. Its peer is then
/// shown the state, which may be the one from before, and shows that.
///
/// Of a window it tells besides where the keyboard goes in it (`setFocusedControl`), before it delivers a press
/// elsewhere that editing ends (`endEditing`), and which keys no control wants (`ResponderChain::performKeyEquivalent`,
/// or `keyDown` where the platform matches the keys of menus itself).
class Host {
 public:
  virtual ~Host() = default;

  virtual std::unique_ptr<WindowPeer> peer(Window& window) = 0;

  /// `parent` is a window's peer or one of a control that stands in a window. Tabs that are the window's own, in a
  /// toolbar for one, take no room in its content: their size is empty. A host visits the control with a function for
  /// each kind, and so does not compile if it forgets one.
  virtual std::unique_ptr<Peer> peer(AnyControl control, Peer& parent) = 0;

  /// Where it draws tick mark `index`, one of those that the slider has, in the slider's own coordinates. Asked before
  /// the slider has a peer, too.
  virtual Rect rectOfTickMark(const Slider& slider, int index) const = 0;
};

}  // namespace tarnwell::kit
