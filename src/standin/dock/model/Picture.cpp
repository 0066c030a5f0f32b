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

std::uint32_t Picture::colorAt(double x, double y, int level) const {
  const Pixels& pixels = levels_[static_cast<std::size_t>(level)];
  const double scale = 1.0 / (1 << level);
  const double left = x * scale - 0.5;
  const double top = y * scale - 0.5;
  const int column = static_cast<int>(std::floor(left));
  const int line = static_cast<int>(std::floor(top));
  const auto across = static_cast<std::uint32_t>((left - column) * 256);
  const auto down = static_cast<std::uint32_t>((top - line) * 256);
  return mixedColor(mixedColor(pixelOf(pixels, column, line), pixelOf(pixels, column + 1, line), across),
                    mixedColor(pixelOf(pixels, column, line + 1), pixelOf(pixels, column + 1, line + 1), across), down);
}

std::uint32_t blended(std::uint32_t over, std::uint32_t under) {
  const std::uint32_t opacity = over >> 24U;
  if (opacity == 255) {
    return over;
  }
  return opacity == 0 ? under : over + mixedColor(under, 0, opacity + (opacity >> 7U));
}

}  // namespace tarnwell::standin
