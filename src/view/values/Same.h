#pragma once

#include <any>
#include <concepts>
#include <vector>

namespace tarnwell::view {

/// Equality made reflexive: two NaNs are the same, or a tree that holds one would never settle. Values without an
/// equality are never the same.
template <class T>
bool same(const T& a, const T& b) {
  if constexpr (std::equality_comparable<T>) {
    return a == b || (a != a && b != b);  // NOLINT(misc-redundant-expression): only a NaN differs from itself
  } else {
    return false;
  }
}

/// The same for values whose type is known only where they were erased.
using AnySame = bool (*)(const std::any&, const std::any&);
template <class T>
bool sameErased(const std::any& a, const std::any& b) {
  return same(std::any_cast<const T&>(a), std::any_cast<const T&>(b));
}

/// The first position of `value`, -1 where it is none of them.
template <class T>
int indexOf(const std::vector<T>& values, const T& value) {
  for (std::size_t i = 0; i < values.size(); ++i) {
    if (same(values[i], value)) {
      return static_cast<int>(i);
    }
  }
  return -1;
}

}  // namespace tarnwell::view
