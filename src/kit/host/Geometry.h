#pragma once

namespace tarnwell::kit {

// Everything is in points, x to the right, y downwards.

struct Point {
  double x = 0;
  double y = 0;
  friend bool operator==(const Point&, const Point&) = default;
};

struct Size {
  double width = 0;
  double height = 0;
  friend bool operator==(const Size&, const Size&) = default;
};

struct Rect {
  double x = 0;
  double y = 0;
  double width = 0;
  double height = 0;

  double right() const { return x + width; }
  double bottom() const { return y + height; }
  Size size() const { return {.width = width, .height = height}; }
  /// Its right and lower edge are not its own.
  bool contains(Point point) const { return point.x >= x && point.x < right() && point.y >= y && point.y < bottom(); }
  friend bool operator==(const Rect&, const Rect&) = default;
};

/// `rect` with its edges, not its size, on whole points: neighbours that touched still touch.
Rect onWholePoints(const Rect& rect);

}  // namespace tarnwell::kit
