#include "standin/dock/model/SpreadLayout.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace tarnwell::standin {
namespace {

constexpr double margin = 36;

Rectangle fitted(const Rectangle& window, const Rectangle& cell) {
  const double width = std::max(cell.width - margin, 1.0);
  const double height = std::max(cell.height - margin, 1.0);
  const double scale = std::min({1.0, width / window.width, height / window.height});
  const Point center = cell.center();
  const double wide = window.width * scale;
  const double high = window.height * scale;
  return {std::round(center.x - wide / 2), std::round(center.y - high / 2), wide, high};
}

}  // namespace

std::vector<Rectangle> spreadOut(const std::vector<Rectangle>& windows, const Rectangle& area) {
  const std::size_t count = windows.size();
  if (count == 0) {
    return {};
  }
  const auto columns = static_cast<std::size_t>(std::ceil(std::sqrt(static_cast<double>(count))));
  const std::size_t rows = (count + columns - 1) / columns;
  std::vector<Rectangle> places;
  for (std::size_t i = 0; i < count; ++i) {
    const std::size_t row = i / columns;
    // The last row may have fewer, and they share it.
    const std::size_t inRow = std::min(columns, count - row * columns);
    const double width = area.width / static_cast<double>(inRow);
    const double height = area.height / static_cast<double>(rows);
    places.push_back(fitted(windows[i], {area.x + width * static_cast<double>(i % columns),
                                         area.y + height * static_cast<double>(row), width, height}));
  }
  return places;
}

}  // namespace tarnwell::standin
