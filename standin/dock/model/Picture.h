#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "standin/dock/model/Geometry.h"

namespace tarnwell::standin {

/// A rectangle of pixels, each premultiplied ARGB, row by row.
struct Pixels {
  int width = 0;
  int height = 0;
  std::vector<std::uint32_t> values;

  Pixels() = default;
  /// All of them transparent.
  Pixels(int wide, int high)
      : width(wide), height(high), values(static_cast<std::size_t>(wide) * static_cast<std::size_t>(high)) {}

  std::uint32_t* row(int y) { return values.data() + static_cast<std::size_t>(y) * static_cast<std::size_t>(width); }
  const std::uint32_t* row(int y) const {
    return values.data() + static_cast<std::size_t>(y) * static_cast<std::size_t>(width);
  }
};

/// Pixels to be drawn smaller than they are: keeps copies of a half, a quarter and an eighth of the size, since a few
/// pixels picked out of many make a picture flicker when it moves. Outside of the rectangle everything is transparent.
class Picture {
 public:
  explicit Picture(Pixels pixels);

  int width() const { return levels_.front().width; }
  int height() const { return levels_.front().height; }

  /// The copy for a picture that is drawn at 1/`shrink` of its size.
  int levelFor(double shrink) const;

  /// Lays what is along a straight line through the picture upon `count` pixels. Places are in pixels of the full size,
  /// the middle of the first one is at 0.5; each colour is mixed from the four pixels around its place.
  void layLine(std::uint32_t* onto, int count, const Point& from, const Point& step, int level) const;

 private:
  std::vector<Pixels> levels_;
};

/// `over` laid upon `under`.
std::uint32_t blended(std::uint32_t over, std::uint32_t under);

}  // namespace tarnwell::standin
