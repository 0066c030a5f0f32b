#pragma once

#include <functional>
#include <vector>

#include "host/headless/Journal.h"
#include "kit/control/Window.h"

namespace tarnwell::host_headless {

/// A window that is only told about.
class HeadlessWindowPeer final : public kit::WindowPeer {
 public:
  /// What windows have in common.
  struct Screen {
    double availableHeight = 1000;
    double chromeHeight = 0;  // Of each window.
    /// Those on it that took the keyboard, the one that has it last.
    std::vector<kit::Window*> byKeyboard = {};
    /// Told which one has it when that may have changed; null for none.
    std::function<void(kit::Window*)> keyWindowChanged = [](kit::Window*) {};
  };

  /// `screen` is read at each layout and outlives the peer.
  HeadlessWindowPeer(Journal& journal, kit::Window& window, Screen& screen);
  HeadlessWindowPeer(const HeadlessWindowPeer&) = delete;
  HeadlessWindowPeer& operator=(const HeadlessWindowPeer&) = delete;
  ~HeadlessWindowPeer() override;

  void show(kit::Aspect aspect) noexcept override;
  void place(const kit::Rect& frame) noexcept override;
  double availableHeight(double /*width*/) const override { return screen_.availableHeight; }
  double chromeHeight(double /*width*/) const override { return screen_.chromeHeight; }
  void reorder(const std::vector<kit::Control*>& inTreeOrder) noexcept override;
  void miniaturize() noexcept override;
  void orderFront() noexcept override;
  void focus(kit::Control* control) noexcept override { window_.setFocusedControl(control); }

 private:
  void note(const std::string& what) { journal_.note("window " + window_.identifier() + ": " + what); }
  void putKeyboard(bool here);

  Journal& journal_;
  kit::Window& window_;
  Screen& screen_;
};

}  // namespace tarnwell::host_headless
