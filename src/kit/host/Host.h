#pragma once

#include <memory>

#include "kit/host/Peer.h"
#include "kit/host/TextMeasurer.h"
#include "kit/host/WindowPeer.h"

namespace tarnwell::kit {

class Box;
class Button;
class Control;
class Pane;
class PopUpButton;
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
class Host : public TextMeasurer {
 public:
  virtual std::unique_ptr<WindowPeer> peer(Window& window) = 0;

  virtual std::unique_ptr<Peer> peer(Box& box, Peer& parent) = 0;
  virtual std::unique_ptr<Peer> peer(Button& button, Peer& parent) = 0;
  virtual std::unique_ptr<Peer> peer(Pane& pane, Peer& parent) = 0;
  virtual std::unique_ptr<Peer> peer(PopUpButton& button, Peer& parent) = 0;
  virtual std::unique_ptr<Peer> peer(ScrollArea& area, Peer& parent) = 0;
  virtual std::unique_ptr<Peer> peer(Slider& slider, Peer& parent) = 0;
  virtual std::unique_ptr<Peer> peer(Stepper& stepper, Peer& parent) = 0;
  virtual std::unique_ptr<Peer> peer(SymbolView& symbol, Peer& parent) = 0;
  virtual std::unique_ptr<Peer> peer(TabBar& bar, Peer& parent) = 0;
  virtual std::unique_ptr<Peer> peer(TextField& field, Peer& parent) = 0;
  virtual std::unique_ptr<Peer> peer(TextLabel& label, Peer& parent) = 0;
  virtual std::unique_ptr<Peer> peer(Toggle& toggle, Peer& parent) = 0;

  /// The size of one control. A host whose controls are a toolkit's own answers with theirs.
  virtual Measurement measure(const Control& control, Proposal proposal) const;
};

}  // namespace tarnwell::kit
