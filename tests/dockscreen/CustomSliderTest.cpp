#include "dockscreen/CustomSlider.h"

#include <gtest/gtest.h>

#include <cmath>

#include "kit/Printing.h"

namespace tarnwell::dockscreen {
namespace {

CustomSlider& withTicks(CustomSlider& slider, int count) {
  slider.setFrame({.width = 200, .height = 24});
  slider.setNumberOfTickMarks(count);
  return slider;
}

class CustomSliderTest : public testing::Test {
 protected:
  kit::Rect tick(int index, int count) { return withTicks(slider, count).rectOfTickMarkAtIndex(index); }

  CustomSlider slider = CustomSlider(0, 0, 1, nullptr);
};

TEST_F(CustomSliderTest, elevenTicksReachBeyondTheRightEdge) {
  EXPECT_EQ(tick(0, 11), (kit::Rect{2, 5, 2, 16}));
  EXPECT_EQ(tick(1, 11), (kit::Rect{24, 5, 2, 16}));
  EXPECT_EQ(tick(9, 11), (kit::Rect{200, 5, 2, 16}));
  EXPECT_EQ(tick(10, 11), (kit::Rect{222, 5, 2, 16}));
}

TEST_F(CustomSliderTest, aTickThatDoesNotExistIsEmpty) {
  EXPECT_EQ(tick(11, 11), kit::Rect{});
  EXPECT_EQ(tick(-1, 11), kit::Rect{});
  EXPECT_EQ(tick(0, 0), kit::Rect{});
  EXPECT_EQ(tick(0, -3), kit::Rect{});
}

TEST_F(CustomSliderTest, twoTicksHaveNoFinitePlaces) {
  EXPECT_TRUE(std::isnan(tick(0, 2).x));
  EXPECT_TRUE(std::isinf(tick(1, 2).x));
  EXPECT_GT(tick(1, 2).x, 0);
  EXPECT_EQ(tick(1, 2).y, 5);
}

TEST_F(CustomSliderTest, oneTickIsPlacedLikeTheOthers) { EXPECT_EQ(tick(0, 1), (kit::Rect{2, 5, 2, 16})); }

TEST_F(CustomSliderTest, threeTicksAreAWholeWidthApart) {
  EXPECT_EQ(tick(1, 3).x, 200);
  EXPECT_EQ(tick(2, 3).x, 398);
}

TEST(CustomSliderFrameTest, itCanBeMadeWithAFrame) {
  CustomSlider slider(kit::Rect{.x = 3, .y = 4, .width = 200, .height = 24});
  slider.setNumberOfTickMarks(11);
  EXPECT_EQ(slider.frame(), (kit::Rect{3, 4, 200, 24}));
  EXPECT_EQ(slider.rectOfTickMarkAtIndex(9), (kit::Rect{200, 5, 2, 16}));
}

TEST_F(CustomSliderTest, itIsASliderInEverythingElse) {
  withTicks(slider, 11).dragTo({.x = 100});
  EXPECT_EQ(slider.doubleValue(), 0.5);
}

}  // namespace
}  // namespace tarnwell::dockscreen
