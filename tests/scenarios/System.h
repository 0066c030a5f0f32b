#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "host/headless/HeadlessLoginItem.h"
#include "host/headless/HeadlessUpdater.h"
#include "kit/host/Geometry.h"

namespace tarnwell::kit {
class Application;
class Platform;
class Window;
}  // namespace tarnwell::kit

namespace tarnwell::scenarios {

/// A system with its user: where the whole application runs, and what is done and seen there beside single controls.
/// Everything that waits has run when a call returns.
class System {
 public:
  /// The menu of the status icon, for those who ask for a menu by its title.
  static constexpr const char* icon = "status icon";

  virtual ~System() = default;

  virtual kit::Platform& platform() = 0;
  virtual host_headless::HeadlessUpdater& updater() = 0;
  virtual host_headless::HeadlessLoginItem& loginItem() = 0;
  /// What both were asked, among other things.
  virtual const std::vector<std::string>& journal() = 0;

  /// Ends the launch.
  virtual void launch(kit::Application& application) = 0;
  virtual void settle() = 0;

  /// A menu as it is shown when it is opened: "(title)" where it cannot be chosen, "-" for a line between two.
  virtual std::vector<std::string> entries(const std::string& menu) = 0;
  virtual void choose(const std::string& menu, const std::string& entry) = 0;
  /// Command and a key, in the window in front.
  virtual void pressCommand(char key) = 0;
  /// By the window's own button.
  virtual void closeWindow(kit::Window& window) = 0;

  virtual bool isOnScreen(const kit::Window& window) = 0;
  /// With the menu bar, if it has one.
  virtual kit::Size sizeOf(const kit::Window& window) = 0;
  virtual bool aboutIsShown() = 0;
  virtual void closeAbout() = 0;

  /// What the browser was given since the last call; waits for it.
  virtual std::string openedAddress() = 0;

  /// The user starts the application once more.
  virtual void reopen() = 0;
  /// The system ends the application, with the session for one.
  virtual void end() = 0;
  /// Whether the application ends by this, from within its main loop.
  virtual bool endsBy(const std::function<void()>& action) = 0;
};

/// The system of the host that this test program is for.
std::unique_ptr<System> makeSystem();

}  // namespace tarnwell::scenarios
