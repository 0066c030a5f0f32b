#include "host/painted/TabGeometry.h"

#include <algorithm>
#include <cmath>

#include "host/painted/ControlMetrics.h"
#include "kit/controls/choices/TabBar.h"

namespace tarnwell::host_painted {

double tabWidth(double height) { return std::round(metrics::tab.width * height / metrics::tab.height); }

kit::Rect rectOfTab(const kit::TabBar& bar, int index) {
  const double height = std::max(metrics::tab.height, bar.bounds().height - 2 * metrics::tabBarInset);
  const double width = tabWidth(height);
  const double all = width * static_cast<double>(bar.items().size());
  return {
      .x = (bar.bounds().width - all) / 2 + width * index, .y = metrics::tabBarInset, .width = width, .height = height};
}

}  // namespace tarnwell::host_painted
