#pragma once

#include <string>
#include <tuple>

#include "view/state/Environment.h"
#include "view/tree/Composite.h"

namespace tarnwell::view {

/// A symbol with a title to its right; in the style `iconOnly` the title is only told to screen readers.
struct Label {
  std::string title = {};
  std::string symbol = {};
  Environment<LabelStyleKey> style = {};

  /// From the symbol's left edge to the title's, in points.
  static constexpr double titleInset = 26;

  /// The style is the environment's.
  friend bool operator==(const Label& a, const Label& b) { return a.title == b.title && a.symbol == b.symbol; }

  auto stored() { return std::tie(style); }
  View body() const;
};

}  // namespace tarnwell::view
