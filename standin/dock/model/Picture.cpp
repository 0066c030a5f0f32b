#include "standin/dock/model/Picture.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace tarnwell::standin {
namespace {

// Two channels at once, in the even and in the odd bytes.
constexpr std::uint32_t evenBytes = 0x00ff00ffU;

std::uint32_t mixedColor(std::uint32_t from, std::uint32_t to, std::uint32_t share) {
  const std::uint32_t even = ((from & evenBytes) * (256 - share) + (to & evenBytes) * share) >> 8U;
  const std::uint32_t odd = ((from >> 8U) & evenBytes) * (256 - share) + ((to >> 8U) & evenBytes) * share;
  return (even & evenBytes) | (odd & ~evenBytes);
}

std::uint32_t pixelOf(const Pixels& pixels, int x, int y) {
  return x < 0 || y < 0 || x >= pixels.width || y >= pixels.height ? 0 : pixels.row(y)[x];
}

// Places between pixels are counted in parts of one, which are quicker than fractions.
constexpr int partBits = 16;
constexpr int shareBits = 8;
constexpr std::int64_t one = std::int64_t{1} << partBits;

std::uint32_t partOf(std::int64_t place) {
  return static_cast<std::uint32_t>(place >> (partBits - shareBits)) & ((1U << shareBits) - 1);
}

// Of the four pixels around a place, which often have one colour.
std::uint32_t colorBetween(const Pixels& pixels, std::int64_t x, std::int64_t y) {
  const int column = static_cast<int>(x >> partBits);
  const int line = static_cast<int>(y >> partBits);
  if (column < 0 || line < 0 || column >= pixels.width - 1 || line >= pixels.height - 1) {
    return mixedColor(mixedColor(pixelOf(pixels, column, line), pixelOf(pixels, column + 1, line), partOf(x)),
                      mixedColor(pixelOf(pixels, column, line + 1), pixelOf(pixels, column + 1, line + 1), partOf(x)),
                      partOf(y));
  }
  const std::uint32_t* upper = pixels.row(line) + column;
  const std::uint32_t* lower = upper + pixels.width;
  if (upper[0] == upper[1] && upper[0] == lower[0] && upper[0] == lower[1]) {
    return upper[0];
  }
  return mixedColor(mixedColor(upper[0], upper[1], partOf(x)), mixedColor(lower[0], lower[1], partOf(x)), partOf(y));
}

Pixels halved(const Pixels& pixels) {
  Pixels half((pixels.width + 1) / 2, (pixels.height + 1) / 2);
  for (int y = 0; y < half.height; ++y) {
    for (int x = 0; x < half.width; ++x) {
      const std::uint32_t upper = mixedColor(pixelOf(pixels, 2 * x, 2 * y), pixelOf(pixels, 2 * x + 1, 2 * y), 128);
      const std::uint32_t lower =
          mixedColor(pixelOf(pixels, 2 * x, 2 * y + 1), pixelOf(pixels, 2 * x + 1, 2 * y + 1), 128);
      half.row(y)[x] = mixedColor(upper, lower, 128);
    }
  }
  return half;
}

}  // namespace

Picture::Picture(Pixels pixels) {
  constexpr int levels = 4;
  levels_.push_back(std::move(pixels));
  while (levels_.size() < levels) {
    levels_.push_back(halved(levels_.back()));
  }
}

int Picture::levelFor(double shrink) const {
  const double halvings = std::round(std::log2(std::max(shrink, 1.0)));
  return static_cast<int>(std::min(halvings, static_cast<double>(levels_.size() - 1)));
}

void Picture::layLine(std::uint32_t* onto, int count, const Point& from, const Point& step, int level) const {
  const Pixels& pixels = levels_[static_cast<std::size_t>(level)];
  const double scale = one / static_cast<double>(1 << level);
  // The middle of a pixel is where it has its colour; half a share is for rounding.
  constexpr std::int64_t shift = one / 2 - (1 << (partBits - shareBits - 1));
  std::int64_t x = std::llround(from.x * scale) - shift;
  std::int64_t y = std::llround(from.y * scale) - shift;
  const std::int64_t right = std::llround(step.x * scale);
  const std::int64_t down = std::llround(step.y * scale);
  for (std::uint32_t* pixel = onto; pixel < onto + count; ++pixel, x += right, y += down) {
    *pixel = blended(colorBetween(pixels, x, y), *pixel);
  }
}

std::uint32_t blended(std::uint32_t over, std::uint32_t under) {
  const std::uint32_t opacity = over >> 24U;
  if (opacity == 255) {
    return over;
  }
  return opacity == 0 ? under : over + mixedColor(under, 0, opacity + (opacity >> 7U));
}

}  // namespace tarnwell::standin
