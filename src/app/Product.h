#pragma once

#include "kit/application/Product.h"

namespace tarnwell::app {

/// Tarnwell as it was built.
kit::Product product();

}  // namespace tarnwell::app
