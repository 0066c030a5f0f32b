#pragma once

#include <QtCore/Qt>
#include <cstdint>
#include <map>
#include <span>
#include <string_view>
#include <vector>

namespace tarnwell::host_qt {

/// In parts of a drawing's side, of which there are `side`.
struct OutlinePoint {
  static constexpr double side = 16384;

  std::int16_t x = 0;
  std::int16_t y = 0;
  bool isFirst = false;  // of a polygon
};

/// Polygons that are filled together.
struct Outline {
  std::span<const OutlinePoint> points = {};
  Qt::FillRule rule = Qt::OddEvenFill;
};

/// The symbols by their names, each the outlines to be filled one after another. Made from their drawings when the
/// program is built.
const std::map<std::string_view, std::vector<Outline>>& outlines();

}  // namespace tarnwell::host_qt
