#pragma once

#include "host/headless/Journal.h"
#include "kit/controls/Window.h"

namespace tarnwell::host_headless {

/// A window that is only told about.
class HeadlessWindowPeer final : public kit::WindowPeer {
 public:
  /// Of a window on the screen, and in it beside the content.
  struct Room {
    double availableHeight = 1000;
    double chromeHeight = 0;
  };

  /// `room` is read at each layout and outlives the peer.
  HeadlessWindowPeer(Journal& journal, const kit::Window& window, const Room& room);

  void show(kit::Aspect aspect) noexcept override;
  void place(const kit::Rect& frame) noexcept override;
  double availableHeight(double /*width*/) const override { return room_.availableHeight; }
  double chromeHeight(double /*width*/) const override { return room_.chromeHeight; }
  void reorder(const std::vector<kit::Control*>& inTreeOrder) noexcept override;
  void miniaturize() noexcept override;
  void orderFront() noexcept override;

 private:
  Journal& journal_;
  const kit::Window& window_;
  const Room& room_;
};

}  // namespace tarnwell::host_headless
