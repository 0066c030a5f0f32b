#pragma once

#include <memory>
#include <string>
#include <vector>

#include "app/TarnwellApp.h"
#include "fakes/RecordingCommandRunner.h"
#include "host/headless/HeadlessPlatform.h"
#include "kit/application/Application.h"
#include "view/scenes/SceneRunner.h"

namespace tarnwell::app {

/// The whole application on a platform in memory, with a Dock at its defaults.
class RunningApplication {
 public:
  RunningApplication();
  RunningApplication(const RunningApplication&) = delete;
  RunningApplication& operator=(const RunningApplication&) = delete;
  ~RunningApplication();

  /// Starts it, up to where the main loop would begin.
  RunningApplication& install();
  /// Starts it and lets it come to rest.
  RunningApplication& start();
  void settle() { platform_.runUntilIdle(*application_); }

  /// Command and a key, as the user presses it in the key window.
  bool pressCommand(const std::string& key);
  /// Chooses an entry of the main menu by its titles, "Help" and "About Tarnwell".
  void choose(const std::string& menu, const std::string& entry);
  /// Clicks the status icon and chooses an entry of its menu.
  void chooseFromExtra(const std::string& entry);
  std::shared_ptr<kit::MenuItem> entry(const std::string& menu, const std::string& title);
  void chooseTab(int index);

  /// What the platform was asked, without what single controls were told.
  std::vector<std::string> milestones();
  /// The milestones since the last call.
  std::vector<std::string> newMilestones();

  /// A line for each entry, indented below its menu: its title, its key, and whether it is disabled; "-" for a
  /// separator.
  std::string mainMenuPicture();
  std::string extraPicture();
  std::string settingsPicture();

  kit::Window& settings() { return scenes_->settingsWindow()->window(); }
  bool settingsAreOpen() const;
  kit::Control& control(const std::string& name);
  std::vector<std::string> reads();

  host_headless::HeadlessPlatform& platform() { return platform_; }
  kit::Application& application() { return *application_; }
  updates::UpdaterEnv& updaterEnv() { return *tarnwellApp_.updaterEnv(); }
  view::SceneRunner& scenes() { return *scenes_; }
  fakes::RecordingCommandRunner& runner() { return runner_; }

 private:
  std::string pictureOf(const kit::Menu& menu, const std::string& indentation = {});

  host_headless::HeadlessPlatform platform_;
  fakes::RecordingCommandRunner runner_;
  std::shared_ptr<kit::Application> application_;
  TarnwellApp tarnwellApp_;
  std::unique_ptr<view::SceneRunner> scenes_;
  std::size_t seen_ = 0;
};

}  // namespace tarnwell::app
