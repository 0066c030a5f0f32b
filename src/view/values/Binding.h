#pragma once

#include <functional>

namespace tarnwell::view {

/// A value that another object owns, to read and to write. Both functions capture handles, never `this`: they
/// outlive the view that made them.
template <class T>
struct Binding {
  std::function<T()> get = {};
  std::function<void(T)> set = {};
};

}  // namespace tarnwell::view
