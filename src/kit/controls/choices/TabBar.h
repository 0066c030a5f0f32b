#pragma once

#include "kit/controls/choices/ChoiceControl.h"

namespace tarnwell::kit {

/// The tabs of a settings window: a symbol over a title each.
class TabBar final : public ChoiceControl {
 public:
  /// The user's doing: the one that many tabs to the right, to the left where negative; the first follows the last.
  void chooseBeside(int distance);

  AnyControl any() override { return this; }

 protected:
  Accessible ownAccessible() const override;
};

}  // namespace tarnwell::kit
