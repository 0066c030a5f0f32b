#pragma once

#include <any>
#include <map>
#include <memory>
#include <typeindex>
#include <utility>

namespace tarnwell::view {

/// A key names its value's type and what a view reads where nobody above set one:
///
///     struct FontKey { using Value = kit::FontRole; static Value initial() { return kit::FontRole::body; } };
template <class K>
concept EnvironmentKey = requires {
  typename K::Value;
  { K::initial() } -> std::convertible_to<typename K::Value>;
};

/// What flows down the tree. Immutable; a copy costs a reference count.
class EnvironmentValues {
 public:
  template <EnvironmentKey K>
  typename K::Value get() const {
    const std::any* value = find(typeid(K));
    return value != nullptr ? std::any_cast<const typename K::Value&>(*value) : K::initial();
  }

  template <EnvironmentKey K>
  EnvironmentValues with(typename K::Value value) const {
    return with(typeid(K), std::any(std::move(value)));
  }

  /// The object of that type that was set above; null where there is none.
  template <class O>
  std::shared_ptr<O> object() const {
    const std::any* object = find(typeid(O));
    return object != nullptr ? std::any_cast<const std::shared_ptr<O>&>(*object) : nullptr;
  }

  template <class O>
  EnvironmentValues withObject(std::shared_ptr<O> object) const {
    return with(typeid(O), std::any(std::move(object)));
  }

 private:
  using Map = std::map<std::type_index, std::any>;

  const std::any* find(std::type_index key) const;
  EnvironmentValues with(std::type_index key, std::any value) const;

  std::shared_ptr<const Map> values_;
};

}  // namespace tarnwell::view
