#include "standin/dock/model/MeshPainter.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <utility>

namespace tarnwell::standin {
namespace {

constexpr std::uint32_t red = 0xffff0000U;
constexpr std::uint32_t blue = 0xff0000ffU;

Pixels filled(int width, int height, std::uint32_t color) {
  Pixels pixels(width, height);
  std::ranges::fill(pixels.values, color);
  return pixels;
}

// Red on the left, blue on the right.
Picture twoHalves(int width, int height) {
  Pixels pixels = filled(width, height, red);
  for (int y = 0; y < height; ++y) {
    std::fill(pixels.row(y) + width / 2, pixels.row(y) + width, blue);
  }
  return Picture(std::move(pixels));
}

std::uint32_t colorAt(const Picture& picture, double x, double y, int level) {
  std::uint32_t color = 0;
  picture.layLine(&color, 1, {x, y}, {1, 0}, level);
  return color;
}

TEST(MeshPainterTest, aPictureThatIsNotBentIsCopiedExactly) {
  Pixels canvas(60, 50);
  drawBent(canvas, twoHalves(40, 30), [](double u, double v) { return Point{10 + 40 * u, 5 + 30 * v}; });
  for (int y = 0; y < canvas.height; ++y) {
    for (int x = 0; x < canvas.width; ++x) {
      const bool inside = x >= 10 && x < 50 && y >= 5 && y < 35;
      const std::uint32_t expected = x < 30 ? red : blue;
      ASSERT_EQ(canvas.row(y)[x], inside ? expected : 0) << x << ' ' << y;
    }
  }
}

TEST(MeshPainterTest, hasNoHolesWhenBent) {
  Pixels canvas(100, 100);
  // A trapezoid that is 90 wide at its top and 30 at its bottom.
  drawBent(canvas, Picture(filled(200, 200, red)), [](double u, double v) {
    const double half = 45 - 30 * v;
    return Point{50 - half + 2 * half * u, 5 + 90 * v};
  });
  // The rim is blended with what is outside of the picture.
  constexpr int rim = 5;
  for (int y = 5 + rim; y < 95 - rim; ++y) {
    const double half = 45 - 30 * (y + 0.5 - 5) / 90 - rim;
    for (int x = static_cast<int>(50 - half) + 1; x < static_cast<int>(50 + half); ++x) {
      ASSERT_EQ(canvas.row(y)[x], red) << x << ' ' << y;
    }
  }
}

TEST(MeshPainterTest, drawsNothingBesideTheCanvas) {
  Pixels canvas(20, 20);
  const Picture picture(filled(40, 40, red));
  drawBent(canvas, picture, [](double u, double v) { return Point{-30 + 40 * u, -30 + 40 * v}; });
  EXPECT_EQ(canvas.row(5)[5], red);
  EXPECT_EQ(canvas.row(15)[15], 0U);
  drawBent(canvas, picture, [](double u, double v) { return Point{10 + 400 * u, 10 + 400 * v}; });
  EXPECT_EQ(canvas.row(19)[19], red);
}

TEST(MeshPainterTest, whatHasNoAreaIsNotThere) {
  Pixels canvas(20, 20);
  drawBent(canvas, Picture(filled(40, 40, red)), [](double, double) { return Point{10, 10}; });
  EXPECT_TRUE(std::ranges::all_of(canvas.values, [](std::uint32_t each) { return each == 0; }));
}

TEST(PictureTest, aSmallerCopyHoldsTheMeanOfWhatItReplaces) {
  Pixels stripes(64, 64);
  for (int y = 0; y < 64; ++y) {
    for (int x = 0; x < 64; ++x) {
      stripes.row(y)[x] = x % 2 == 0 ? 0xffffffffU : 0xff000000U;
    }
  }
  const Picture picture(std::move(stripes));
  const int level = picture.levelFor(4);
  EXPECT_EQ(level, 2);
  const std::uint32_t grey = colorAt(picture, 32, 32, level);
  EXPECT_EQ(grey >> 24U, 255U);
  EXPECT_NEAR(grey & 255U, 127, 2);
  EXPECT_EQ(picture.levelFor(0.5), 0);
  EXPECT_EQ(picture.levelFor(1000), 3);
}

TEST(PictureTest, isTransparentOutside) {
  const Picture picture(filled(8, 8, red));
  EXPECT_EQ(colorAt(picture, -2, 4, 0), 0U);
  EXPECT_EQ(colorAt(picture, 4, 11, 0), 0U);
  EXPECT_NEAR(colorAt(picture, 0, 4, 0) >> 24U, 127, 1);
}

TEST(PictureTest, aLineMixesTheFourPixelsAroundEachPlace) {
  const Picture picture = twoHalves(8, 8);
  std::array<std::uint32_t, 4> line{};
  picture.layLine(line.data(), 3, {3, 2}, {0.75, 0.5}, 0);
  EXPECT_EQ(line[0], red);
  // Three quarters of a pixel further, the middle of the last red one is a quarter behind, of four.
  EXPECT_NEAR(line[1] & 255U, 0.25 * 255, 1);
  EXPECT_NEAR((line[1] >> 16U) & 255U, 0.75 * 255, 1);
  EXPECT_EQ(line[2], blue);
  EXPECT_EQ(line[3], 0U);
}

// Between the middles of four pixels, of which some are blue.
double blueShareBetween(const std::array<bool, 4>& areBlue) {
  Pixels pixels = filled(4, 4, red);
  for (int i = 0; i < 4; ++i) {
    pixels.row(1 + i / 2)[1 + i % 2] = areBlue.at(static_cast<std::size_t>(i)) ? blue : red;
  }
  return (colorAt(Picture(std::move(pixels)), 2, 2, 0) & 255U) / 255.0;
}

TEST(PictureTest, aPlaceBetweenFourPixelsHasAQuarterOfEach) {
  constexpr double rounding = 0.01;
  for (int odd = 0; odd < 4; ++odd) {
    std::array<bool, 4> areBlue{};
    areBlue.at(static_cast<std::size_t>(odd)) = true;
    EXPECT_NEAR(blueShareBetween(areBlue), 0.25, rounding) << odd;
  }
  EXPECT_NEAR(blueShareBetween({true, true, false, false}), 0.5, rounding);
  EXPECT_NEAR(blueShareBetween({true, false, true, false}), 0.5, rounding);
  EXPECT_NEAR(blueShareBetween({true, false, false, true}), 0.5, rounding);
  EXPECT_EQ(blueShareBetween({true, true, true, true}), 1);
}

TEST(PictureTest, blendingCoversAsMuchAsTheUpperColourIsOpaque) {
  EXPECT_EQ(blended(red, blue), red);
  EXPECT_EQ(blended(0, blue), blue);
  const std::uint32_t mixed = blended(0x80800000U, blue);
  EXPECT_NEAR(mixed >> 24U, 255, 1);
  EXPECT_NEAR(mixed & 255U, 127, 2);
}

}  // namespace
}  // namespace tarnwell::standin
