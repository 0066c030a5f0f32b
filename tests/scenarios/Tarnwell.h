#pragma once

#include <memory>
#include <string>
#include <vector>

#include "app/TarnwellApp.h"
#include "fakes/RecordingCommandRunner.h"
#include "kit/application/Application.h"
#include "scenarios/Driver.h"
#include "scenarios/System.h"
#include "view/scenes/SceneRunner.h"

namespace tarnwell::scenarios {

/// The whole application on the system of this test program, over a runner that answers from a table.
class Tarnwell {
 public:
  /// Started, at rest.
  Tarnwell();
  Tarnwell(const Tarnwell&) = delete;
  Tarnwell& operator=(const Tarnwell&) = delete;
  ~Tarnwell();

  System& system() { return *system_; }

  // The settings window, its controls by the name that a screen reader says.

  kit::Window& settings() const { return scenes_->settingsWindow()->window(); }
  bool settingsAreOpen() const;
  kit::Control& control(const std::string& name) const;
  bool has(const std::string& name) const;
  std::string value(const std::string& name) { return inWords(driver_->look(control(name)).value); }
  bool isEnabled(const std::string& name) { return driver_->look(control(name)).isEnabled; }
  void press(const std::string& name) { driver_->click(control(name)); }
  std::vector<std::string> tabs() const;
  std::string chosenTab() const;
  void chooseTab(int index);

  /// The updater comes to, or ceases to, be able to check.
  void setCanCheckForUpdates(bool canCheck);

  // What happened since the last call.

  std::vector<std::string> reads();
  /// What the updater and the login item were asked.
  std::vector<std::string> asked();
  std::vector<std::string> openedAddresses();
  /// The identifiers of the open windows after each change.
  std::vector<std::vector<std::string>> windowLists();

 private:
  std::unique_ptr<System> system_;
  std::unique_ptr<Driver> driver_;
  fakes::RecordingCommandRunner runner_;
  std::vector<std::string> opened_;
  std::vector<std::vector<std::string>> windowLists_;
  std::size_t seen_ = 0;
  std::shared_ptr<kit::Application> application_;
  kit::Subscription windowChanges_;
  app::TarnwellApp tarnwell_;
  std::unique_ptr<view::SceneRunner> scenes_;
};

}  // namespace tarnwell::scenarios
