#pragma once

#include <memory>
#include <string>

#include "kit/control/Window.h"
#include "view/tree/MountedTree.h"
#include "view/values/EnvironmentValues.h"
#include "view/values/View.h"

namespace tarnwell::view {

/// A window with a view in it. The window takes the view's size; where the screen is lower, the view learns of it.
class HostedWindow {
 public:
  struct Content {
    std::string identifier = {};
    std::string title = {};
    View view;
    EnvironmentValues environment = {};
    kit::Window::Kind kind = kit::Window::Kind::standard;
  };

  /// Turn and host are borrowed and outlive the window.
  HostedWindow(kit::Turn& turn, kit::Host& host, const Content& content);
  HostedWindow(const HostedWindow&) = delete;
  HostedWindow& operator=(const HostedWindow&) = delete;
  ~HostedWindow();

  /// Appear handlers run and the tree settles before anything is shown: what they load is what is painted first.
  void open();

  /// The window leaves the screen first, then the tree learns of it. The state stays.
  void close();

  kit::Window& window() { return window_; }
  MountedTree& tree() { return *tree_; }

 private:
  void settled();
  void layOut();

  kit::Turn& turn_;
  kit::Window window_;
  std::unique_ptr<MountedTree> tree_;
  bool showWhenSettled_ = false;
};

}  // namespace tarnwell::view
