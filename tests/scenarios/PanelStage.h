#pragma once

#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "kit/application/Application.h"
#include "kit/control/Control.h"
#include "kit/control/Window.h"
#include "scenarios/Driver.h"
#include "scenarios/System.h"

namespace tarnwell::scenarios {

/// An application without scenes on the system of the host, and a user who reads a panel of it.
class PanelStage {
 public:
  kit::Application& application() { return *application_; }
  System& system() { return *system_; }
  Driver& driver() { return *driver_; }

  /// What a screen reader calls the controls of that role, in their order.
  std::vector<std::string> names(const kit::Window& window, kit::AccessibleRole role) {
    std::vector<std::string> found;
    for (kit::Control* control : window.controls()) {
      if (const auto seen = driver_->look(*control); seen.role == role) {
        found.push_back(seen.name);
      }
    }
    return found;
  }

  kit::Control& control(const kit::Window& window, const std::string& name) {
    for (kit::Control* control : window.controls()) {
      if (driver_->look(*control).name == name) {
        return *control;
      }
    }
    throw std::out_of_range("nothing is called " + name);
  }

  /// The first of that role.
  kit::Control& control(const kit::Window& window, kit::AccessibleRole role) {
    for (kit::Control* control : window.controls()) {
      if (driver_->look(*control).role == role) {
        return *control;
      }
    }
    throw std::out_of_range("nothing has that role");
  }

  void press(const kit::Window& window, const std::string& name) {
    driver_->click(control(window, name));
    system_->settle();
  }

  void key(kit::Window& window, Key key) {
    driver_->pressKey(window, key);
    system_->settle();
  }

 private:
  std::unique_ptr<System> system_ = makeSystem();
  std::shared_ptr<kit::Application> application_ = kit::Application::create(system_->platform());
  std::unique_ptr<Driver> driver_ = makeDriver();
};

}  // namespace tarnwell::scenarios
