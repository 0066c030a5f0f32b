#pragma once

#include <concepts>

namespace tarnwell::view {

/// Equality made reflexive: two NaNs are the same, or a tree that holds one would never settle. Values without an
/// equality are never the same.
template <class T>
bool same(const T& a, const T& b) {
  if constexpr (std::equality_comparable<T>) {
    return a == b || (a != a && b != b);
  } else {
    return false;
  }
}

}  // namespace tarnwell::view
