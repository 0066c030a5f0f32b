#pragma once

#include <vector>

#include "kit/host/Peer.h"

namespace tarnwell::kit {

class Control;

/// A host's side of a window, and the parent peer of what stands in it. `place` sizes the content.
class WindowPeer : public Peer {
 public:
  /// The tallest content that the screen has room for beside the chrome of a window of that width, in points.
  virtual double availableHeight(double width) const = 0;

  /// The controls in the order of the tree: the order of the focus and of what a screen reader tells.
  virtual void reorder(const std::vector<Control*>& inTreeOrder) noexcept = 0;

  /// What of the height of a window of that width is not its content's: a menu bar that stands in it, a line that it
  /// breaks. Asked before the window has that width. A change counts as one of metrics.
  virtual double chromeHeight(double /*width*/) const { return 0; }

  /// Out of the way, into the taskbar.
  virtual void miniaturize() noexcept {}

  /// In front of the others, with the keyboard where the window takes it.
  virtual void orderFront() noexcept {}

  /// Gives the keyboard, while the window has it, to a control of the window or, for null, to none. Said after each
  /// showing, so that nothing has it because it is the first, or had it last. On a platform whose buttons take no
  /// keyboard, a button does not get it.
  virtual void focus(Control* control) noexcept = 0;
};

}  // namespace tarnwell::kit
