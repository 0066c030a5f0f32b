#pragma once

#include <functional>
#include <memory>
#include <utility>

#include "diagnostics/Fault.h"
#include "kit/turn/Observers.h"
#include "view/tree/MountedNode.h"

namespace tarnwell::view {

/// An object whose changes views follow. It tells of a change right before it makes it.
class ObservableObject {
 public:
  ObservableObject() = default;
  ObservableObject(const ObservableObject&) = delete;
  ObservableObject& operator=(const ObservableObject&) = delete;
  virtual ~ObservableObject() = default;

  [[nodiscard]] kit::Subscription observe(kit::Action willChange) { return observers_.add(std::move(willChange)); }

 protected:
  void objectWillChange() const { observers_.tell(); }

 private:
  kit::Observers<> observers_;
};

/// A member of a composite that follows an object from outside: its body is made anew after each change.
template <class T>
class ObservedObject {
 public:
  ObservedObject(std::shared_ptr<T> object) : object_(std::move(object)) {}
  // A copy of the composite follows by itself, once it is linked.
  ObservedObject(const ObservedObject& other) : object_(other.object_) {}
  ObservedObject& operator=(const ObservedObject&) = delete;
  ~ObservedObject() = default;

  const std::shared_ptr<T>& get() const { return object_; }
  T* operator->() const { return object_.get(); }

  void link(MountedNode& node, const ObservedObject* /*previous*/) {
    subscription_ = object_->observe(node.markingDirty());
  }
  void unlink() { subscription_.invalidate(); }

 private:
  std::shared_ptr<T> object_;
  kit::Subscription subscription_;
};

/// A member of a composite that follows an object from its environment. Where there is none, the process ends.
template <class T>
class EnvironmentObject {
 public:
  EnvironmentObject() = default;
  EnvironmentObject(const EnvironmentObject& other) : object_(other.object_) {}
  EnvironmentObject& operator=(const EnvironmentObject&) = delete;
  ~EnvironmentObject() = default;

  const std::shared_ptr<T>& get() const {
    if (!object_) {
      diagnostics::fault("No ObservableObject of type " + std::string(T::typeName) +
                         " found. A View.environmentObject(_:) for " + T::typeName +
                         " may be missing as an ancestor of this view.");
    }
    return object_;
  }
  T* operator->() const { return get().get(); }

  void link(MountedNode& node, const EnvironmentObject* /*previous*/) {
    object_ = node.environment().template object<T>();
    subscription_ = get()->observe(node.markingDirty());
  }
  void unlink() { subscription_.invalidate(); }

 private:
  std::shared_ptr<T> object_;
  kit::Subscription subscription_;
};

}  // namespace tarnwell::view
