#pragma once

#include "kit/controls/choices/ChoiceControl.h"

namespace tarnwell::kit {

/// What a pop-up button's peer does beside.
class MenuPeer {
 public:
  virtual ~MenuPeer() = default;

  virtual void openMenu() = 0;
};

/// A button that shows the chosen item and offers the others in a menu.
class PopUpButton final : public ChoiceControl {
 public:
  AnyControl any() override { return this; }

 protected:
  Accessible ownAccessible() const override;
  void act(const AccessibleRequest& request) override;
};

}  // namespace tarnwell::kit
