#pragma once

#include "kit/control/Control.h"

namespace tarnwell::kit {

/// What is only drawn: the rounded ground of a group of rows, the line between two of them, or the ground of a field.
class Box final : public Control {
 public:
  enum class Kind { group, separator, field };

  explicit Box(Kind kind) : kind_(kind) {}

  Kind kind() const { return kind_; }

  AnyControl any() override { return this; }

 protected:
  Accessible ownAccessible() const override { return {.role = AccessibleRole::decoration}; }
  std::vector<Aspect> aspects() const override { return {}; }

 private:
  Kind kind_;
};

}  // namespace tarnwell::kit
