#pragma once

#include <memory>

#include "kit/application/Application.h"
#include "kit/application/StatusItem.h"
#include "kit/menus/MenuItem.h"
#include "settingsaccess/OpenSettingsKey.h"
#include "view/state/Environment.h"

namespace tarnwell::statusmenu {

/// An application delegate with an icon in the status bar, whose menu a right click opens. The application does not
/// install it; the class registry makes one by the name "AppDelegate".
class AppDelegate final : public kit::Object {
 public:
  /// The application is borrowed and outlives the delegate.
  explicit AppDelegate(kit::Application& application);

  /// In no view: the default action of the application.
  view::Environment<settingsaccess::OpenSettingsKey> openSettingsLegacy = {};
  /// Null before the launch.
  std::unique_ptr<kit::StatusItem> statusItem = nullptr;

  void applicationDidFinishLaunching();
  /// Without a current event it ends the process.
  void handleClick();
  void itemClicked(const kit::MenuItem& item);
  void openSettingsInSonoma();

 private:
  void showMenu();

  kit::Application& application_;
};

}  // namespace tarnwell::statusmenu
