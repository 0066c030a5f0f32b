#include "dockscreen/CustomSlider.h"

#include <gtest/gtest.h>

#include <cmath>
#include <utility>

#include "kit/Printing.h"
#include "kit/control/Coder.h"

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

TEST(CustomSliderCoderTest, itCanBeMadeFromACoder) {
  const CustomSlider slider(kit::Coder({{"NSFrame", kit::Rect{.x = 3, .y = 4, .width = 200, .height = 24}},
                                        {"NSMinValue", 1.0},
                                        {"NSMaxValue", 3.0},
                                        {"NSValue", 2.5},
                                        {"NSNumberOfTickMarks", 11}}));
  EXPECT_EQ(slider.frame(), (kit::Rect{3, 4, 200, 24}));
  EXPECT_EQ(slider.minValue(), 1);
  EXPECT_EQ(slider.maxValue(), 3);
  EXPECT_EQ(slider.doubleValue(), 2.5);
  EXPECT_EQ(slider.numberOfTickMarks(), 11);
  EXPECT_EQ(slider.rectOfTickMarkAtIndex(9), (kit::Rect{200, 5, 2, 16}));
  EXPECT_EQ(slider.rectOfTickMarkAtIndex(10), (kit::Rect{222, 5, 2, 16}));
}

TEST(CustomSliderCoderTest, whatTheCoderLacksIsAsInAnyNewSlider) {
  const CustomSlider plain(0, 0, 1, nullptr);
  for (const kit::Coder& coder : {kit::Coder({}), kit::Coder({{"NSFrame", 1.0},
                                                              {"NSMinValue", 1},
                                                              {"NSMaxValue", 3},
                                                              {"NSValue", kit::Rect{.width = 1}},
                                                              {"NSNumberOfTickMarks", 11.0}})}) {
    const CustomSlider slider(coder);
    EXPECT_EQ(slider.frame(), plain.frame());
    EXPECT_EQ(slider.minValue(), 0);
    EXPECT_EQ(slider.maxValue(), 1);
    EXPECT_EQ(slider.doubleValue(), 0);
    EXPECT_EQ(slider.numberOfTickMarks(), 0);
  }
}

TEST(CustomSliderCoderTest, whatMakesNoSenseIsAsInAnyNewSlider) {
  const CustomSlider plain(0, 0, 1, nullptr);
  for (const kit::Rect& frame : {kit::Rect{.width = -1}, kit::Rect{.height = -1}, kit::Rect{.x = HUGE_VAL}}) {
    EXPECT_EQ(CustomSlider(kit::Coder({{"NSFrame", frame}})).frame(), plain.frame());
  }
  for (const auto& [least, most] : {std::pair(1.0, 0.0), std::pair(0.0, HUGE_VAL), std::pair(std::nan(""), 1.0)}) {
    const CustomSlider slider(kit::Coder({{"NSMinValue", least}, {"NSMaxValue", most}, {"NSValue", 7.0}}));
    EXPECT_EQ(slider.minValue(), 0);
    EXPECT_EQ(slider.maxValue(), 1);
    EXPECT_EQ(slider.doubleValue(), 1);
  }
  EXPECT_EQ(CustomSlider(kit::Coder({{"NSValue", std::nan("")}})).doubleValue(), 0);
  EXPECT_EQ(CustomSlider(kit::Coder({{"NSNumberOfTickMarks", -3}})).numberOfTickMarks(), 0);
}

TEST_F(CustomSliderTest, itIsASliderInEverythingElse) {
  withTicks(slider, 11).choose(0.5);
  EXPECT_EQ(slider.doubleValue(), 0.5);
}

}  // namespace
}  // namespace tarnwell::dockscreen
