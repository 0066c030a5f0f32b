#pragma once

#include <memory>
#include <vector>

#include "host/qt/platform/QtHost.h"
#include "kit/control/Control.h"
#include "kit/control/Window.h"

namespace tarnwell::host_qt {

/// The host of this test program; its application lives as long as the tests run.
QtHost& testHost();

/// Of a control alone in its window.
inline constexpr kit::Rect usualPlace = {.x = 20, .y = 20, .width = 120, .height = 24};

/// One window with the controls that a test puts there.
class Stage {
 public:
  Stage();
  ~Stage();

  template <class C>
  C& add(std::unique_ptr<C> control, const kit::Rect& frame) {
    C& added = *control;
    put(std::move(control), frame, *window_->peer());
    return added;
  }

  template <class C>
  C& addTo(kit::Control& parent, std::unique_ptr<C> control, const kit::Rect& frame) {
    C& added = *control;
    put(std::move(control), frame, *parent.peer());
    return added;
  }

  /// Shows the window and waits until it is the active one.
  void show();

  /// Another order of the tree.
  void reorder(std::vector<kit::Control*> inTreeOrder) { window_->setControls(std::move(inTreeOrder)); }

  /// Ends every control, or the window with its controls still alive.
  void clear();
  void endWindow() { window_.reset(); }

  kit::Window& window() { return *window_; }

 private:
  void put(std::unique_ptr<kit::Control> control, const kit::Rect& frame, kit::Peer& parent);

  std::unique_ptr<kit::Window> window_;
  std::vector<std::unique_ptr<kit::Control>> controls_;
};

}  // namespace tarnwell::host_qt
