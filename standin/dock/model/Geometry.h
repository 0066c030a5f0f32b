#pragma once

namespace tarnwell::standin {

/// In points, y downwards.
struct Point {
  double x = 0;
  double y = 0;

  bool operator==(const Point&) const = default;
};

struct Size {
  double width = 0;
  double height = 0;
};

struct Rectangle {
  double x = 0;
  double y = 0;
  double width = 0;
  double height = 0;

  double right() const { return x + width; }
  double bottom() const { return y + height; }
  Point center() const { return {x + width / 2, y + height / 2}; }
  bool operator==(const Rectangle&) const = default;
};

}  // namespace tarnwell::standin
