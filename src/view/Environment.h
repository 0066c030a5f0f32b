#pragma once

#include <optional>

#include "view/EnvironmentValues.h"
#include "view/MountedNode.h"

namespace tarnwell::view {

/// A member of a composite that reads a value of the environment in which the view stands.
template <EnvironmentKey K>
class Environment {
 public:
  /// The key's initial value until mounted.
  typename K::Value get() const { return value_ ? *value_ : K::initial(); }

  void link(MountedNode& node, const Environment* /*previous*/) { value_ = node.environment().get<K>(); }
  void unlink() {}

 private:
  std::optional<typename K::Value> value_;
};

}  // namespace tarnwell::view
