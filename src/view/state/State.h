#pragma once

#include <memory>
#include <utility>

#include "diagnostics/Fault.h"
#include "view/tree/MountedNode.h"
#include "view/values/Binding.h"
#include "view/values/Same.h"

namespace tarnwell::view {

/// The value behind a state, and what to do when it changes.
template <class T>
class Cell {
 public:
  Cell(T value, kit::Action changed) : value_(std::move(value)), changed_(std::move(changed)) {}

  const T& value() const { return value_; }

  void set(T value) {
    if (!same(value_, value)) {
      value_ = std::move(value);
      changed_();
    }
  }

 private:
  T value_;
  kit::Action changed_;
};

/// A value that belongs to the place in the tree: it outlives the composite that names it and goes with the node.
/// Main thread only; a `set` before the view is mounted is a fault.
template <class T>
class State {
 public:
  State(T initial = {}) : initial_(std::move(initial)) {}  // Reads as the value it starts with

  /// The initial value until mounted.
  const T& get() const { return cell_ ? cell_->value() : initial_; }

  /// The same value changes nothing; another makes the body anew when the turn settles.
  void set(T value) const { cell().set(std::move(value)); }

  Binding<T> binding() const {
    return {.get = [cell = sharedCell()] { return cell->value(); },
            .set = [cell = sharedCell()](T value) { cell->set(std::move(value)); }};
  }

  void link(MountedNode& node, const State* previous) {
    cell_ = previous != nullptr ? previous->cell_ : std::make_shared<Cell<T>>(initial_, node.markingDirty());
  }
  void unlink() {}

 private:
  const std::shared_ptr<Cell<T>>& sharedCell() const {
    if (!cell_) {
      diagnostics::fault("a state was changed or bound outside of a mounted view; is it named in stored()?");
    }
    return cell_;
  }
  Cell<T>& cell() const { return *sharedCell(); }

  T initial_;
  std::shared_ptr<Cell<T>> cell_;
};

}  // namespace tarnwell::view
