#pragma once

#include <memory>

#include "kit/host/Peer.h"
#include "kit/host/WindowPeer.h"

namespace tarnwell::kit {

class Box;
class Button;
class Pane;
class PopUpButton;
class ProgressBar;
class RichText;
class ScrollArea;
class Slider;
class Stepper;
class SymbolView;
class TabBar;
class TextField;
class TextLabel;
class Toggle;
class Window;

/// All that a toolkit must do. A host that forgets a kind of control does not compile.
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

  // `parent` is a window's peer or one of a control that stands in a window.

  virtual std::unique_ptr<Peer> peer(Box& box, Peer& parent) = 0;
  virtual std::unique_ptr<Peer> peer(Button& button, Peer& parent) = 0;
  virtual std::unique_ptr<Peer> peer(Pane& pane, Peer& parent) = 0;
  virtual std::unique_ptr<Peer> peer(PopUpButton& button, Peer& parent) = 0;
  virtual std::unique_ptr<Peer> peer(ProgressBar& bar, Peer& parent) = 0;
  virtual std::unique_ptr<Peer> peer(RichText& text, Peer& parent) = 0;
  virtual std::unique_ptr<Peer> peer(ScrollArea& area, Peer& parent) = 0;
  virtual std::unique_ptr<Peer> peer(Slider& slider, Peer& parent) = 0;
  virtual std::unique_ptr<Peer> peer(Stepper& stepper, Peer& parent) = 0;
  virtual std::unique_ptr<Peer> peer(SymbolView& symbol, Peer& parent) = 0;
  /// Tabs that are the window's own, in a toolbar for one, take no room in its content: their size is empty.
  virtual std::unique_ptr<Peer> peer(TabBar& bar, Peer& parent) = 0;
  virtual std::unique_ptr<Peer> peer(TextField& field, Peer& parent) = 0;
  virtual std::unique_ptr<Peer> peer(TextLabel& label, Peer& parent) = 0;
  virtual std::unique_ptr<Peer> peer(Toggle& toggle, Peer& parent) = 0;

  /// Where it draws tick mark `index`, one of those that the slider has, in the slider's own coordinates. Asked before
  /// the slider has a peer, too.
  virtual Rect rectOfTickMark(const Slider& slider, int index) const = 0;
};

}  // namespace tarnwell::kit
