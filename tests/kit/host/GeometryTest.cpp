#include "kit/host/Geometry.h"

#include <gtest/gtest.h>

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

TEST(GeometryTest, aRectangleContainsItsFirstEdgesOnly) {
  constexpr Rect rect{.x = 10, .y = 20, .width = 5, .height = 5};
  EXPECT_TRUE(rect.contains({.x = 10, .y = 20}));
  EXPECT_TRUE(rect.contains({.x = 14.9, .y = 24.9}));
  for (const Point outside : {Point{9, 22}, Point{15, 22}, Point{12, 19}, Point{12, 25}}) {
    EXPECT_FALSE(rect.contains(outside));
  }
  EXPECT_FALSE(Rect{}.contains({}));
}

}  // namespace
}  // namespace tarnwell::kit
