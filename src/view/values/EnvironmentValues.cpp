#include "view/values/EnvironmentValues.h"

namespace tarnwell::view {

const std::any* EnvironmentValues::find(Key key) const {
  for (const Entry* entry = nearest_.get(); entry != nullptr; entry = entry->outer.get()) {
    if (entry->key == key) {
      return &entry->value;
    }
  }
  return nullptr;
}

EnvironmentValues EnvironmentValues::with(Key key, std::any value) const {
  EnvironmentValues result;
  result.nearest_ = std::make_shared<const Entry>(Entry{.key = key, .value = std::move(value), .outer = nearest_});
  return result;
}

}  // namespace tarnwell::view
