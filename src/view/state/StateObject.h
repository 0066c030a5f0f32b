#pragma once

#include <concepts>
#include <functional>
#include <memory>
#include <utility>

#include "diagnostics/Fault.h"
#include "kit/turn/Action.h"
#include "view/tree/MountedNode.h"
#include "view/values/Binding.h"
#include "view/values/EnvironmentValues.h"

namespace tarnwell::view {

/// A plain object that a view owns: made once for the mounted node, by a function that gets the node's environment
/// and what to call after each change. The object outlives every closure that captured its handle.
template <class T>
class StateObject {
 public:
  using Make = std::function<std::shared_ptr<T>(const EnvironmentValues& environment, kit::Action changed)>;

  StateObject(Make make) : make_(std::move(make)) {}  // Reads as the maker

  /// Null is a fault: the view is not mounted, or its stored() forgets this member.
  const std::shared_ptr<T>& get() const {
    if (!object_) {
      diagnostics::fault("a state object was used outside of a mounted view; is it named in stored()?");
    }
    return object_;
  }
  T* operator->() const { return get().get(); }

  /// A field of the object, or of what it derives from; writing goes through the object's own `set(field, value)`.
  template <class F, class Owner>
  requires std::derived_from<T, Owner> Binding<F> binding(F Owner::*field)
  const {
    return {.get = [object = get(), field] { return (*object).*field; },
            .set = [object = get(), field](F value) { object->set(field, std::move(value)); }};
  }

  void link(MountedNode& node, const StateObject* previous) {
    object_ = previous != nullptr ? previous->object_ : make_(node.environment(), node.markingDirty());
  }
  void unlink() {}

 private:
  Make make_;
  std::shared_ptr<T> object_;
};

}  // namespace tarnwell::view
