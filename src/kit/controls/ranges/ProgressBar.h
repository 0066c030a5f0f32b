#pragma once

#include <optional>

#include "kit/control/Control.h"

namespace tarnwell::kit {

/// How far something has come that takes its time. It is only looked at.
class ProgressBar final : public Control {
 public:
  /// From 0 to 1; absent while it is unknown how much is left.
  std::optional<double> share() const { return share_; }
  /// Held to that range; a share that is no number is an unknown one.
  void setShare(std::optional<double> share);

  AnyControl any() override { return this; }

 protected:
  /// Without value and range while the share is unknown.
  Accessible ownAccessible() const override;
  std::vector<Aspect> aspects() const override { return {Aspect::value}; }

 private:
  std::optional<double> share_;
};

}  // namespace tarnwell::kit
