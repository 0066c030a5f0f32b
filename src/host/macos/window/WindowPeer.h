#pragma once

#include "host/macos/controls/Container.h"
#include "host/macos/look/Retained.h"
#include "host/macos/window/MacWindow.h"
#include "kit/host/WindowPeer.h"

namespace tarnwell::host_macos {

/// A window of the platform's as a window's peer.
class WindowPeer final : public kit::WindowPeer, public Container {
 public:
  /// The window is borrowed; it owns this.
  explicit WindowPeer(kit::Window& window);
  ~WindowPeer() override;

  NSView* content() const override { return [window_.get() contentView]; }

  void show(kit::Aspect aspect) noexcept override;
  /// The upper edge stays where it is.
  void place(const kit::Rect& frame) noexcept override;
  double availableHeight(double width) const override;
  void reorder(const std::vector<kit::Control*>& inTreeOrder) noexcept override;
  void miniaturize() noexcept override;
  void orderFront() noexcept override;
  void focus(kit::Control* control) noexcept override;

 private:
  void showOrHide();
  /// What is not the content: the title bar, and the toolbar where there is one.
  NSSize chrome() const;

  kit::Window& kitWindow_;
  Retained<TWWindow*> window_;
  bool wasShown_ = false;
};

}  // namespace tarnwell::host_macos
