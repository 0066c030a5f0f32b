#pragma once

#include <memory>
#include <string>
#include <vector>

#include "app/RunningApplication.h"
#include "scenarios/Driver.h"
#include "scenarios/System.h"

namespace tarnwell::scenarios {

/// The system of this test program, which is there before the application.
struct SystemOfHost {
  std::unique_ptr<System> hostSystem = makeSystem();
};

/// The whole application on that system.
class Tarnwell : private SystemOfHost, public app::RunningApplication {
 public:
  /// Started, at rest.
  Tarnwell();

  System& system() { return *hostSystem; }

  // The settings window, its controls by the name that a screen reader says.

  bool settingsAreOpen() const;
  std::string value(const std::string& name) { return inWords(driver_->look(control(name)).value); }
  bool isEnabled(const std::string& name) { return driver_->look(control(name)).isEnabled; }
  void press(const std::string& name) { driver_->click(control(name)); }
  std::vector<std::string> tabs() const;
  std::string chosenTab() const;
  void chooseTab(int index);

  /// The updater comes to, or ceases to, be able to check.
  void setCanCheckForUpdates(bool canCheck);

  // What happened since the last call.

  /// What the updater and the login item were asked.
  std::vector<std::string> asked();
  /// The identifiers of the open windows after each change.
  std::vector<std::vector<std::string>> windowLists();

 private:
  std::unique_ptr<Driver> driver_ = makeDriver();
  std::vector<std::vector<std::string>> windowLists_;
  std::size_t seen_ = 0;
  kit::Subscription windowChanges_;
};

}  // namespace tarnwell::scenarios
