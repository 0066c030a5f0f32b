#pragma once

#include <optional>
#include <string>

#include "view/tree/MountedNode.h"
#include "view/values/EnvironmentValues.h"

namespace tarnwell::view {

/// Writes the framework's fault line on standard error.
void reportReadOutsideOfView(const std::string& valueTypeName);

/// A member of a composite that reads a value of the environment in which the view stands.
template <EnvironmentKey K>
class Environment {
 public:
  /// The key's initial value outside of a mounted view. A key that names its value's type has that reported.
  typename K::Value get() const {
    if (value_) {
      return *value_;
    }
    if constexpr (requires { K::valueTypeName; }) {
      reportReadOutsideOfView(K::valueTypeName);
    }
    return K::initial();
  }

  void link(MountedNode& node, const Environment* /*previous*/) { value_ = node.environment().get<K>(); }
  void unlink() {}

 private:
  std::optional<typename K::Value> value_;
};

}  // namespace tarnwell::view
