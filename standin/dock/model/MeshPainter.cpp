#include "standin/dock/model/MeshPainter.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <limits>
#include <vector>

namespace tarnwell::standin {
namespace {

constexpr int meshColumns = 24;
constexpr int meshLines = 48;

/// A corner of a triangle: where it is on the canvas, and which place of the picture belongs there, in pixels.
struct Corner {
  Point canvas;
  Point picture;
};
using Triangle = std::array<Corner, 3>;

/// The place in the picture for each place on the canvas: picture = origin + x * alongX + y * alongY.
struct Slope {
  Point origin;
  Point alongX;
  Point alongY;
  bool isFlat = true;  // no place on the canvas is inside
};

Slope slopeOf(const Triangle& corners) {
  const Corner& a = corners[0];
  const Corner& b = corners[1];
  const Corner& c = corners[2];
  const Point ab{b.canvas.x - a.canvas.x, b.canvas.y - a.canvas.y};
  const Point ac{c.canvas.x - a.canvas.x, c.canvas.y - a.canvas.y};
  const double area = ab.x * ac.y - ac.x * ab.y;
  constexpr double leastArea = 1e-6;
  if (std::abs(area) < leastArea) {
    return {};
  }
  const auto solve = [&](double toB, double toC, double start) {
    const double alongX = (toB * ac.y - toC * ab.y) / area;
    const double alongY = (toC * ab.x - toB * ac.x) / area;
    return std::array{start - alongX * a.canvas.x - alongY * a.canvas.y, alongX, alongY};
  };
  const auto u = solve(b.picture.x - a.picture.x, c.picture.x - a.picture.x, a.picture.x);
  const auto v = solve(b.picture.y - a.picture.y, c.picture.y - a.picture.y, a.picture.y);
  return {.origin = {u[0], v[0]}, .alongX = {u[1], v[1]}, .alongY = {u[2], v[2]}, .isFlat = false};
}

// Between the two directions, where they differ: a funnel that is narrow would else look out of focus.
double shrinkOf(const Slope& slope) {
  return std::sqrt(std::hypot(slope.alongX.x, slope.alongX.y) * std::hypot(slope.alongY.x, slope.alongY.y));
}

/// The part of a line of the canvas that is inside of a triangle; empty when left is not below right.
struct Span {
  double left = 1;
  double right = 0;
};

Span spanOf(const Triangle& corners, double y) {
  constexpr double far = std::numeric_limits<double>::infinity();
  Span span{.left = far, .right = -far};
  for (std::size_t i = 0; i < corners.size(); ++i) {
    const Point& from = corners[i].canvas;
    const Point& to = corners[(i + 1) % corners.size()].canvas;
    if ((from.y <= y) != (to.y <= y)) {
      const double x = from.x + (y - from.y) / (to.y - from.y) * (to.x - from.x);
      span.left = std::min(span.left, x);
      span.right = std::max(span.right, x);
    }
  }
  return span;
}

// The pixels whose middles are between two places; the right one belongs to the neighbour.
int firstPixel(double from, int least) { return std::max(static_cast<int>(std::ceil(from - 0.5)), least); }
int pixelAfter(double to, int most) { return std::min(static_cast<int>(std::ceil(to - 0.5)), most); }

void drawLine(Pixels& canvas, const Picture& picture, const Slope& slope, int level, int y, const Span& span) {
  const int begin = firstPixel(span.left, 0);
  const double right = begin + 0.5;
  const double down = y + 0.5;
  const Point from{slope.origin.x + slope.alongX.x * right + slope.alongY.x * down,
                   slope.origin.y + slope.alongX.y * right + slope.alongY.y * down};
  picture.layLine(canvas.row(y) + begin, pixelAfter(span.right, canvas.width) - begin, from, slope.alongX, level);
}

void drawTriangle(Pixels& canvas, const Picture& picture, const Triangle& corners) {
  const Slope slope = slopeOf(corners);
  if (slope.isFlat) {
    return;
  }
  const int level = picture.levelFor(shrinkOf(slope));
  const auto [top, bottom] = std::minmax({corners[0].canvas.y, corners[1].canvas.y, corners[2].canvas.y});
  const int end = pixelAfter(bottom, canvas.height);
  for (int y = firstPixel(top, 0); y < end; ++y) {
    const Span span = spanOf(corners, y + 0.5);
    if (span.left < span.right) {
      drawLine(canvas, picture, slope, level, y, span);
    }
  }
}

std::vector<Corner> cornersOf(const Picture& picture, const PlaceOnCanvas& place) {
  std::vector<Corner> corners;
  corners.reserve(std::size_t{meshColumns + 1} * std::size_t{meshLines + 1});
  for (int line = 0; line <= meshLines; ++line) {
    for (int column = 0; column <= meshColumns; ++column) {
      const double u = static_cast<double>(column) / meshColumns;
      const double v = static_cast<double>(line) / meshLines;
      corners.push_back({.canvas = place(u, v), .picture = {u * picture.width(), v * picture.height()}});
    }
  }
  return corners;
}

}  // namespace

void drawBent(Pixels& canvas, const Picture& picture, const PlaceOnCanvas& place) {
  const std::vector<Corner> corners = cornersOf(picture, place);
  const auto corner = [&](int column, int line) {
    return corners[static_cast<std::size_t>(line) * (meshColumns + 1) + static_cast<std::size_t>(column)];
  };
  for (int line = 0; line < meshLines; ++line) {
    for (int column = 0; column < meshColumns; ++column) {
      const Corner upperRight = corner(column + 1, line);
      const Corner lowerLeft = corner(column, line + 1);
      drawTriangle(canvas, picture, {corner(column, line), upperRight, lowerLeft});
      drawTriangle(canvas, picture, {upperRight, corner(column + 1, line + 1), lowerLeft});
    }
  }
}

}  // namespace tarnwell::standin
