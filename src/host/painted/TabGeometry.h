#pragma once

#include "kit/host/Geometry.h"

namespace tarnwell::kit {
class TabBar;
}

namespace tarnwell::host_painted {

/// In proportion: what makes a tab higher is a larger text, which is wider as well.
double tabWidth(double height);

/// Where a tab stands in the bar: all alike, side by side in the middle.
kit::Rect rectOfTab(const kit::TabBar& bar, int index);

}  // namespace tarnwell::host_painted
