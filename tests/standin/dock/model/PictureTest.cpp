#include "standin/dock/model/Picture.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <random>
#include <utility>
#include <vector>

namespace tarnwell::standin {
namespace {

// Of any opacity, and no channel above it, as premultiplied ones are.
Pixels anyPixels(int width, int height) {
  std::mt19937 random(20250320);  // the same in every run
  Pixels pixels(width, height);
  for (std::uint32_t& each : pixels.values) {
    const auto opacity = static_cast<std::uint32_t>(random() % 256);
    each = opacity << 24U;
    for (const unsigned shift : {0U, 8U, 16U}) {
      each |= static_cast<std::uint32_t>(random() % (opacity + 1)) << shift;
    }
  }
  return pixels;
}

double channelAt(const Pixels& pixels, int x, int y, unsigned shift) {
  const bool isInside = x >= 0 && y >= 0 && x < pixels.width && y < pixels.height;
  return isInside ? static_cast<double>(pixels.row(y)[x] >> shift & 255U) : 0;
}

// What is at a place, in fractions, by how near it is to the middles of the four pixels around it.
double mixedAt(const Pixels& pixels, const Point& place, unsigned shift) {
  const double x = place.x - 0.5;
  const double y = place.y - 0.5;
  const int column = static_cast<int>(std::floor(x));
  const int line = static_cast<int>(std::floor(y));
  const double right = x - column;
  const double down = y - line;
  return channelAt(pixels, column, line, shift) * (1 - right) * (1 - down) +
         channelAt(pixels, column + 1, line, shift) * right * (1 - down) +
         channelAt(pixels, column, line + 1, shift) * (1 - right) * down +
         channelAt(pixels, column + 1, line + 1, shift) * right * down;
}

// Upon nothing, so that it is what is laid.
std::uint32_t colorAt(const Picture& picture, const Point& place, int level = 0) {
  std::uint32_t color = 0;
  picture.layLine(&color, 1, place, {1, 0}, level);
  return color;
}

void expectCutOff(double exact, std::uint32_t color, unsigned shift, double most) {
  const double lost = exact - static_cast<double>(color >> shift & 255U);
  EXPECT_GE(lost, 0);
  EXPECT_LT(lost, most);
}

TEST(PictureTest, aPlaceIsMixedFromFourPixelsByHowNearTheyAre) {
  const Pixels pixels = anyPixels(5, 4);
  const Picture picture(pixels);
  std::mt19937 random(7);
  for (int count = 0; count < 5000; ++count) {
    // The parts of a pixel that are told apart, some of them outside of the picture.
    const Point place{static_cast<double>(random() % 2048) / 256 - 1.5,
                      static_cast<double>(random() % 2048) / 256 - 1.5};
    for (const unsigned shift : {0U, 8U, 16U, 24U}) {
      // Each of two steps drops what is less than a whole.
      expectCutOff(mixedAt(pixels, place, shift), colorAt(picture, place), shift, 2);
    }
  }
}

TEST(PictureTest, aCopyOfAHalfHoldsTheMeanOfEachFour) {
  for (const auto& [width, height] : {std::pair(8, 6), {7, 5}, {1, 1}}) {
    const Pixels pixels = anyPixels(width, height);
    const Picture picture(pixels);
    for (int y = 0; y < height; y += 2) {
      for (int x = 0; x < width; x += 2) {
        const std::uint32_t color = colorAt(picture, {x + 1.0, y + 1.0}, 1);
        for (const unsigned shift : {0U, 8U, 16U, 24U}) {
          expectCutOff(mixedAt(pixels, {x + 1.0, y + 1.0}, shift), color, shift, 2);
        }
      }
    }
  }
}

TEST(PictureTest, isDrawnFromTheCopyWhoseSizeIsNearest) {
  const Picture picture(anyPixels(16, 16));
  const std::vector<std::pair<double, int>> levels = {{0, 0},    {1, 0},    {1.41, 0}, {1.42, 1}, {2, 1},  {2.82, 1},
                                                      {2.83, 2}, {5.65, 2}, {5.66, 3}, {8, 3},    {100, 3}};
  for (const auto& [shrink, level] : levels) {
    EXPECT_EQ(picture.levelFor(shrink), level) << shrink;
  }
}

TEST(PictureTest, whiteUponWhiteStaysWhiteHoweverOpaqueItIs) {
  for (std::uint32_t opacity = 0; opacity < 256; ++opacity) {
    const std::uint32_t over = opacity * 0x01010101U;
    const std::uint32_t both = blended(over, 0xffffffffU);
    for (const unsigned shift : {0U, 8U, 16U, 24U}) {
      EXPECT_GE(both >> shift & 255U, 254U) << opacity;
    }
    EXPECT_EQ(blended(over, 0), over);
  }
}

}  // namespace
}  // namespace tarnwell::standin
