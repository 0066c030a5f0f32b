#pragma once

#include "kit/application/Product.h"
#include "view/tree/Composite.h"

namespace tarnwell::about {

/// What a product is called, and whose it is.
struct AboutView {
  kit::Product product = {};

  view::View body() const;
};

}  // namespace tarnwell::about
