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

EnvironmentValues EnvironmentValues::with(Entry entry) const {
  EnvironmentValues result;
  entry.outer = nearest_;
  result.nearest_ = std::make_shared<const Entry>(std::move(entry));
  return result;
}

bool operator==(const EnvironmentValues& a, const EnvironmentValues& b) {
  const auto* one = a.nearest_.get();
  const auto* other = b.nearest_.get();
  // What was set further out is one chain as a rule.
  while (one != other) {
    if (one == nullptr || other == nullptr || one->key != other->key || !one->same(one->value, other->value)) {
      return false;
    }
    one = one->outer.get();
    other = other->outer.get();
  }
  return true;
}

}  // namespace tarnwell::view
