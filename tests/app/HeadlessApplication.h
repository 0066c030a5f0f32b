#pragma once

#include <memory>
#include <string>
#include <vector>

#include "app/Product.h"
#include "app/RunningApplication.h"
#include "host/headless/HeadlessPlatform.h"

namespace tarnwell::app {

/// What is there before the application.
struct PlatformInMemory {
  host_headless::HeadlessPlatform inMemory = host_headless::HeadlessPlatform(product());
};

/// The whole application on a platform in memory.
class HeadlessApplication : private PlatformInMemory, public RunningApplication {
 public:
  HeadlessApplication() : RunningApplication(inMemory) {}

  /// Starts it, up to where the main loop would begin.
  HeadlessApplication& install();
  /// Starts it and lets it come to rest.
  HeadlessApplication& start();
  void settle() { inMemory.runUntilIdle(application()); }

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

  bool settingsAreOpen() const;

  host_headless::HeadlessPlatform& platform() { return inMemory; }

 private:
  std::string pictureOf(const kit::Menu& menu, const std::string& indentation = {});

  std::size_t seen_ = 0;
};

}  // namespace tarnwell::app
