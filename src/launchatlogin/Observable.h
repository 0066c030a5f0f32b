#pragma once

#include "launchatlogin/LaunchAtLogin.h"
#include "view/state/ObservableObject.h"

namespace tarnwell::launchatlogin {

/// Lets views follow the registration. It keeps nothing: the system does.
class LaunchAtLogin::Observable final : public view::ObservableObject {
 public:
  bool isEnabled() const { return LaunchAtLogin::isEnabled(); }

  void setEnabled(bool enabled) {
    objectWillChange();
    LaunchAtLogin::setEnabled(enabled);
  }
};

}  // namespace tarnwell::launchatlogin
