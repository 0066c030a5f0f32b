#include "view/EnvironmentValues.h"

namespace tarnwell::view {

const std::any* EnvironmentValues::find(std::type_index key) const {
  if (!values_) {
    return nullptr;
  }
  const auto found = values_->find(key);
  return found != values_->end() ? &found->second : nullptr;
}

EnvironmentValues EnvironmentValues::with(std::type_index key, std::any value) const {
  auto changed = values_ ? std::make_shared<Map>(*values_) : std::make_shared<Map>();
  changed->insert_or_assign(key, std::move(value));
  EnvironmentValues result;
  result.values_ = std::move(changed);
  return result;
}

}  // namespace tarnwell::view
