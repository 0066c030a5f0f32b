#include "kit/host/Geometry.h"

#include <gtest/gtest.h>

#include <numbers>
#include <vector>

namespace tarnwell::kit {
namespace {

TEST(GeometryTest, edgesAreRoundedNotSizes) {
  struct Row {
    Rect rect = {};
    Rect rounded = {};
  };
  const std::vector<Row> table = {
      {{1, 2, 3, 4}, {1, 2, 3, 4}},         {{0.4, 0.6, 10, 10}, {0, 1, 10, 10}}, {{0.5, 0, 1, 1}, {1, 0, 1, 1}},
      {{0.4, 0, 0.2, 1}, {0, 0, 1, 1}},     {{0.2, 0, 0.2, 1}, {0, 0, 0, 1}},     {{10.3, 0, 20.3, 1}, {10, 0, 21, 1}},
      {{-0.6, -1.4, 2, 2}, {-1, -1, 2, 2}}, {{0, 0, 0, 0}, {0, 0, 0, 0}},
  };
  for (const Row& row : table) {
    EXPECT_EQ(onWholePoints(row.rect), row.rounded) << row.rect.x << ", " << row.rect.width;
  }
}

TEST(GeometryTest, neighboursThatTouchedStillTouch) {
  double x = 0.1;
  for (int i = 0; i < 50; ++i) {
    const Rect left{.x = x, .width = 7.3, .height = 1};
    const Rect right{.x = left.right(), .width = 3.1, .height = 1};
    EXPECT_EQ(onWholePoints(left).right(), onWholePoints(right).x);
    x = right.right();
  }
}

TEST(GeometryTest, aTurnLeavesTheCentreWhereItIs) {
  const Size size{.width = 100, .height = 20};
  for (const double angle : {0.0, 0.3, std::numbers::pi / 2, std::numbers::pi, -7.0}) {
    const Point centre = turnedAboutCentre({.x = 50, .y = 10}, size, angle);
    EXPECT_EQ(centre, (Point{.x = 50, .y = 10}));
  }
}

TEST(GeometryTest, halfATurnExchangesTheCorners) {
  const Point turned = turnedAboutCentre({.x = 0, .y = 0}, {.width = 100, .height = 20}, std::numbers::pi);
  EXPECT_NEAR(turned.x, 100, 1e-9);
  EXPECT_NEAR(turned.y, 20, 1e-9);
}

TEST(GeometryTest, aQuarterTurnsRightIntoDown) {
  const Point turned = turnedAboutCentre({.x = 20, .y = 10}, {.width = 20, .height = 20}, std::numbers::pi / 2);
  EXPECT_NEAR(turned.x, 10, 1e-9);
  EXPECT_NEAR(turned.y, 20, 1e-9);
}

TEST(GeometryTest, aRectangleContainsItsFirstEdgesOnly) {
  constexpr Rect rect{.x = 10, .y = 20, .width = 5, .height = 5};
  EXPECT_TRUE(rect.contains({.x = 10, .y = 20}));
  EXPECT_TRUE(rect.contains({.x = 14.9, .y = 24.9}));
  for (const Point outside : {Point{9, 22}, Point{15, 22}, Point{12, 19}, Point{12, 25}}) {
    EXPECT_FALSE(rect.contains(outside));
  }
  EXPECT_FALSE(Rect{}.contains({}));
}

TEST(GeometryTest, turningBackGivesThePointAgain) {
  const Size size{.width = 64, .height = 24};
  const Point there = turnedAboutCentre({.x = 3, .y = 17}, size, 1.1);
  const Point back = turnedAboutCentre(there, size, -1.1);
  EXPECT_NEAR(back.x, 3, 1e-9);
  EXPECT_NEAR(back.y, 17, 1e-9);
}

}  // namespace
}  // namespace tarnwell::kit
