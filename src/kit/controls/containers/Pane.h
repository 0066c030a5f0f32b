#pragma once

#include "kit/control/Control.h"

namespace tarnwell::kit {

/// A control that is only there to hold others: its peer is their parent.
class Pane : public Control {
 public:
  AnyControl any() override { return this; }

 protected:
  Accessible ownAccessible() const override { return {.role = AccessibleRole::group}; }
  std::vector<Aspect> aspects() const override { return {}; }
};

}  // namespace tarnwell::kit
