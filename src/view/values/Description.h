#pragma once

#include <concepts>
#include <memory>
#include <typeindex>
#include <typeinfo>
#include <utility>

#include "view/values/Same.h"

namespace tarnwell::view {

class MountedNode;
struct Place;

/// What a view is, erased to what mounting and updating need. Immutable and shared.
class Description {
 public:
  Description() = default;
  Description(const Description&) = delete;
  Description& operator=(const Description&) = delete;
  virtual ~Description() = default;

  /// A node can take over from another description of the same type.
  virtual std::type_index type() const = 0;
  virtual std::shared_ptr<MountedNode> makeNode(const Place& place) const = 0;
  /// Whether `other`, of the same type, says the same. Never of a kind of view without an equality.
  virtual bool isSameAs(const Description& other) const = 0;
};

/// A kind of view: a plain value with a function `makeNode(value, place)` beside it.
template <class V>
concept Mountable = requires(const V& value, const Place& place) {
  { makeNode(value, place) } -> std::same_as<std::shared_ptr<MountedNode>>;
};

// A member of the same name would hide the function beside the value.
template <class V>
std::shared_ptr<MountedNode> makeNodeOf(const V& value, const Place& place) {
  return makeNode(value, place);
}

template <class V>
class ValueDescription final : public Description {
 public:
  explicit ValueDescription(V value) : value_(std::move(value)) {}

  const V& value() const { return value_; }
  std::type_index type() const override { return typeid(V); }
  std::shared_ptr<MountedNode> makeNode(const Place& place) const override { return makeNodeOf(value_, place); }
  bool isSameAs(const Description& other) const override {
    return same(value_, static_cast<const ValueDescription&>(other).value_);
  }

 private:
  V value_;
};

}  // namespace tarnwell::view
