#pragma once

#include <string>
#include <tuple>

#include "view/state/Environment.h"
#include "view/tree/Composite.h"

namespace tarnwell::app {

/// A link to a page of the product's web site.
struct ProductLink {
  std::string title = {};
  std::string path = {};
  view::Environment<view::ProductKey> product = {};

  auto stored() { return std::tie(product); }
  view::View body() const;
};

}  // namespace tarnwell::app
