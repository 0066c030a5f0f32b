#pragma once

#include "host/headless/Journal.h"
#include "kit/Window.h"

namespace tarnwell::host_headless {

/// A window that is only told about.
class HeadlessWindowPeer final : public kit::WindowPeer {
 public:
  /// `availableHeight` is read at each layout and outlives the peer.
  HeadlessWindowPeer(Journal& journal, const kit::Window& window, const double& availableHeight);

  void show(kit::Aspect aspect) noexcept override;
  void place(const kit::Rect& frame) noexcept override;
  double availableHeight() const override { return availableHeight_; }
  void reorder(const std::vector<kit::Control*>& inTreeOrder) noexcept override;
  void miniaturize() noexcept override;
  void orderFront() noexcept override;

 private:
  Journal& journal_;
  const kit::Window& window_;
  const double& availableHeight_;
};

}  // namespace tarnwell::host_headless
