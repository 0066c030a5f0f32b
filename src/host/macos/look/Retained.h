#pragma once

#include <utility>

namespace tarnwell::host_macos {

/// Owns one reference to an object of the platform's. `T` is the pointer: `Retained<NSView*>`.
template <class T>
class Retained {
 public:
  Retained() = default;
  explicit Retained(T object) : object_([object retain]) {}
  /// Takes over the reference that `alloc` or `copy` has given.
  static Retained adopt(T object) {
    Retained owner;
    owner.object_ = object;
    return owner;
  }
  Retained(const Retained& other) : object_([other.object_ retain]) {}
  Retained(Retained&& other) noexcept : object_(std::exchange(other.object_, nil)) {}
  Retained& operator=(Retained other) noexcept {
    std::swap(object_, other.object_);
    return *this;
  }
  ~Retained() { [object_ release]; }

  T get() const { return object_; }

 private:
  T object_ = nil;
};

}  // namespace tarnwell::host_macos
