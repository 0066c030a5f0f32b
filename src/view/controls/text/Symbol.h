#pragma once

#include <memory>
#include <string>

#include "kit/controls/text/SymbolView.h"
#include "view/values/View.h"

namespace tarnwell::view {

/// A symbol by its name; `title` is what a screen reader says of it.
struct Symbol {
  std::string name = {};
  std::string title = {};
  double side = kit::SymbolView::usualSide;  ///< Points.
  friend bool operator==(const Symbol&, const Symbol&) = default;
};

std::shared_ptr<MountedNode> makeNode(const Symbol& symbol, const Place& place);

}  // namespace tarnwell::view
