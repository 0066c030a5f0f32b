#pragma once

#include <memory>
#include <utility>

#include "view/tree/MountedNode.h"
#include "view/values/Same.h"

namespace tarnwell::view {

/// The value behind a state, and the node whose body reads it.
template <class T>
class Cell {
 public:
  Cell(T value, std::weak_ptr<MountedNode> owner) : value_(std::move(value)), owner_(std::move(owner)) {}

  const T& value() const { return value_; }

  void set(T value) {
    if (same(value_, value)) {
      return;
    }
    value_ = std::move(value);
    if (const auto owner = owner_.lock()) {
      owner->markDirty();
    }
  }

 private:
  T value_;
  std::weak_ptr<MountedNode> owner_;
};

}  // namespace tarnwell::view
