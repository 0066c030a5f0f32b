#pragma once

#include <cstddef>
#include <string_view>

namespace tarnwell::standin {

/// How many containers may stand within each other. Real preferences have a handful of levels; the property list
/// library recurses without a limit of its own.
inline constexpr std::size_t deepestNesting = 512;

enum class BinaryShape {
  exact,    // every value survives being read and written by the library
  inexact,  // well formed, but something in it would come out changed
  broken,   // not well formed, nested too deep, or referring to itself
};

/// Examines a binary property list before the library sees it.
BinaryShape binaryShape(std::string_view bytes);

}  // namespace tarnwell::standin
