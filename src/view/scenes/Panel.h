#pragma once

#include <string>

#include "kit/application/Application.h"
#include "view/scenes/HostedWindow.h"

namespace tarnwell::view {

/// A dialog with a view in it, beside the windows of the scenes: it is none of the application's listed windows, but
/// has the keys while the user is in it.
class Panel {
 public:
  /// The application is borrowed and outlives the panel.
  Panel(kit::Application& application, const std::string& identifier, const std::string& title, const View& content,
        const EnvironmentValues& environment = {});
  Panel(const Panel&) = delete;
  Panel& operator=(const Panel&) = delete;
  ~Panel();

  /// Opens it or brings it before the others. Without the keyboard it leaves alone what the user is at.
  void orderFront(bool takesKeyboard);
  void close();

  kit::Window& window() { return hosted_.window(); }
  MountedTree& tree() { return hosted_.tree(); }

 private:
  kit::Application& application_;
  HostedWindow hosted_;
};

}  // namespace tarnwell::view
