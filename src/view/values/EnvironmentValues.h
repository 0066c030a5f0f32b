#pragma once

#include <any>
#include <concepts>
#include <memory>
#include <utility>

#include "view/values/Same.h"

namespace tarnwell::view {

/// A key names its value's type and what a view reads where no view above set one:
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
    const std::any* value = find(&identity<K>);
    return value != nullptr ? std::any_cast<const typename K::Value&>(*value) : K::initial();
  }

  template <EnvironmentKey K>
  EnvironmentValues with(typename K::Value value) const {
    return with({.key = &identity<K>, .value = std::move(value), .same = &sameErased<typename K::Value>});
  }

  /// The object of that type that was set above; null where there is none.
  template <class O>
  std::shared_ptr<O> object() const {
    const std::any* object = find(&identity<O>);
    return object != nullptr ? std::any_cast<const std::shared_ptr<O>&>(*object) : nullptr;
  }

  template <class O>
  EnvironmentValues withObject(std::shared_ptr<O> object) const {
    return with({.key = &identity<O>, .value = std::move(object), .same = &sameErased<std::shared_ptr<O>>});
  }

  /// Whether the same was set, in the same order.
  friend bool operator==(const EnvironmentValues& a, const EnvironmentValues& b);

 private:
  /// A type's address tells it from others faster than its name does.
  template <class T>
  static constexpr char identity = 0;
  using Key = const char*;

  /// A value, and all that was set above. Few are set in one another: a search is short, and setting copies nothing.
  struct Entry {
    Key key = nullptr;
    std::any value = {};
    AnySame same = nullptr;
    std::shared_ptr<const Entry> outer = {};
  };

  const std::any* find(Key key) const;
  EnvironmentValues with(Entry entry) const;

  std::shared_ptr<const Entry> nearest_;
};

}  // namespace tarnwell::view
