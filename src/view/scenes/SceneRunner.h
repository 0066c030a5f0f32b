#pragma once

#include <memory>
#include <string>
#include <vector>

#include "kit/application/Application.h"
#include "view/scenes/HostedWindow.h"
#include "view/scenes/MainMenu.h"
#include "view/scenes/Scene.h"
#include "view/values/EnvironmentValues.h"

namespace tarnwell::view {

/// Closes the open window of the group with that identifier; none is no error.
struct DismissWindowKey {
  using Value = std::function<void(const std::string& identifier)>;
  static Value initial() {
    return [](const std::string&) {};
  }
};

/// Puts an application's scenes onto the platform and drives their windows.
class SceneRunner {
 public:
  static constexpr const char* settingsWindowIdentifier = "com_apple_SwiftUI_Settings_window";

  /// `environment` flows into every scene. The application is borrowed and outlives the runner.
  SceneRunner(kit::Application& application, const EnvironmentValues& environment);
  SceneRunner(const SceneRunner&) = delete;
  SceneRunner& operator=(const SceneRunner&) = delete;
  ~SceneRunner();

  /// Once: builds the main menu with the scenes' commands, places the status icons and, when the platform is ready,
  /// opens a window of the first group. The settings can be opened from then on.
  void install(const std::vector<Scene>& scenes);

  /// Opens the settings window or brings it to the front. Without a settings scene nothing happens.
  void openSettings();
  /// Null until it was first opened; it stays when it is closed.
  HostedWindow* settingsWindow() const { return settings_.get(); }

  void dismissWindow(const std::string& identifier);

 private:
  struct Extra;

  void open(const std::vector<Scene>& scenes);
  std::shared_ptr<HostedWindow> makeWindow(const std::string& identifier, const std::string& title,
                                           const View& content);
  void openWindow(HostedWindow& hosted);
  void closeWindow(HostedWindow& hosted);
  void announceClosing(kit::Window& window);

  kit::Application& application_;
  EnvironmentValues environment_;
  std::unique_ptr<MainMenu> mainMenu_;
  std::vector<std::unique_ptr<Extra>> extras_;
  kit::Subscription opening_;
  std::vector<std::shared_ptr<HostedWindow>> groupWindows_;
  std::optional<View> settingsContent_;
  std::shared_ptr<HostedWindow> settings_;
};

}  // namespace tarnwell::view
