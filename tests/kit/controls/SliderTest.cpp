#include "kit/controls/Slider.h"

#include <gtest/gtest.h>

#include <limits>
#include <numbers>

#include "kit/ShownControl.h"

namespace tarnwell::kit {
namespace {

constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr double infinity = std::numeric_limits<double>::infinity();

// 210 wide: the knob's centre runs from 5 to 205.
struct WideSlider : Slider {
  explicit WideSlider(double value = 0, Slider::SliderAction action = nullptr)
      : Slider(value, 0, 1, std::move(action)) {
    setFrame({.x = 40, .y = 30, .width = 210, .height = 24});
  }
};

TEST(SliderTest, theValueIsHeldToTheRange) {
  struct Row {
    double set = 0;
    double value = 0;
  };
  const std::vector<Row> table = {{0.5, 0.5}, {0, 0}, {1, 1}, {5, 1}, {-1, 0}, {infinity, 1}, {-infinity, 0}, {nan, 0}};
  for (const Row& row : table) {
    EXPECT_EQ(Slider(row.set, 0, 1, nullptr).doubleValue(), row.value) << row.set;
    Slider slider(0.25, 0, 1, nullptr);
    slider.setDoubleValue(row.set);
    EXPECT_EQ(slider.doubleValue(), row.value) << row.set;
  }
  EXPECT_EQ(Slider(nan, 2, 3, nullptr).doubleValue(), 2);
}

TEST(SliderTest, aSliderMadeWithAFrameStandsAtTheStartOfTheUnitRange) {
  Slider slider(Rect{.x = 40, .y = 30, .width = 210, .height = 24});
  EXPECT_EQ(slider.frame(), (Rect{.x = 40, .y = 30, .width = 210, .height = 24}));
  EXPECT_EQ(slider.doubleValue(), 0);
  EXPECT_EQ(slider.minValue(), 0);
  EXPECT_EQ(slider.maxValue(), 1);
  slider.dragTo({.x = 105});
  EXPECT_EQ(slider.doubleValue(), 0.5);
}

TEST(SliderTest, settingItTellsThePeerOnceAndSendsNothing) {
  ShownControl<Slider> slider(0, 0, 1, [](Slider&) { FAIL() << "setting a value sent the action"; });
  slider->setDoubleValue(0.5);
  slider->setDoubleValue(0.5);
  EXPECT_EQ(slider.told(), Lines{"slider: value"});
  slider->setDoubleValue(7);
  slider->setDoubleValue(8);
  EXPECT_EQ(slider.told(), Lines{"slider: value"});
  slider->setDoubleValue(nan);
  slider->setDoubleValue(nan);
  EXPECT_EQ(slider.told(), Lines{"slider: value"});
  slider->setNumberOfTickMarks(11);
  slider->setNumberOfTickMarks(11);
  EXPECT_EQ(slider.told(), Lines{"slider: style"});
}

TEST(SliderTest, tickMarksStandUnderTheKnobsPlaces) {
  WideSlider slider;
  slider.setNumberOfTickMarks(11);
  for (int i = 0; i <= 10; ++i) {
    slider.setDoubleValue(i / 10.0);
    const Rect tick = slider.rectOfTickMarkAtIndex(i);
    EXPECT_DOUBLE_EQ(tick.x + tick.width / 2, slider.knobCentre()) << i;
    EXPECT_EQ(tick.y, 19) << i;
    EXPECT_EQ(tick.size(), (Size{.width = 2, .height = 5})) << i;
  }
  EXPECT_EQ(slider.rectOfTickMarkAtIndex(0).x, 4);
  EXPECT_EQ(slider.rectOfTickMarkAtIndex(10).x, 204);
}

TEST(SliderTest, aTickMarkThatDoesNotExistIsEmpty) {
  WideSlider slider;
  EXPECT_EQ(slider.rectOfTickMarkAtIndex(0), Rect{});
  slider.setNumberOfTickMarks(11);
  EXPECT_EQ(slider.rectOfTickMarkAtIndex(11), Rect{});
  EXPECT_EQ(slider.rectOfTickMarkAtIndex(-1), Rect{});
}

TEST(SliderTest, aSingleTickMarkStandsInTheMiddle) {
  WideSlider slider;
  slider.setNumberOfTickMarks(1);
  EXPECT_EQ(slider.rectOfTickMarkAtIndex(0).x, 104);
}

TEST(SliderTest, theKnobFollowsThePointer) {
  struct Row {
    double x = 0;
    double value = 0;
    double turned = 0;
  };
  const std::vector<Row> table = {{5, 0, 1},    {205, 1, 0},  {105, 0.5, 0.5}, {25, 0.1, 0.9},
                                  {-900, 0, 1}, {5000, 1, 0}, {0, 0, 1},       {210, 1, 0}};
  for (const Row& row : table) {
    WideSlider slider(0.3);
    slider.dragTo({.x = row.x, .y = 2});
    EXPECT_DOUBLE_EQ(slider.doubleValue(), row.value) << row.x;
    slider.setRotation(std::numbers::pi);
    slider.dragTo({.x = row.x, .y = 2});
    EXPECT_NEAR(slider.doubleValue(), row.turned, 1e-12) << row.x;
  }
}

TEST(SliderTest, pastTheEndsOfATurnedSliderTheValueIsExact) {
  WideSlider slider(0.3);
  slider.setRotation(std::numbers::pi);
  slider.dragTo({.x = -3});
  EXPECT_EQ(slider.doubleValue(), 1);
  slider.dragTo({.x = 213});
  EXPECT_EQ(slider.doubleValue(), 0);
}

TEST(SliderTest, aSliderWithoutATrackStaysAtItsMinimum) {
  WideSlider slider(0.3);
  slider.setFrame({.width = 8, .height = 24});
  slider.dragTo({.x = 8});
  EXPECT_EQ(slider.doubleValue(), 0);
  EXPECT_EQ(slider.knobCentre(), 5);
}

TEST(SliderTest, aRangeWithoutLengthHasOneValue) {
  Slider slider(5, 2, 2, nullptr);
  EXPECT_EQ(slider.doubleValue(), 2);
  EXPECT_EQ(slider.knobCentre(), 5);
  slider.dragTo({.x = 100});
  slider.nudge(0.5);
  EXPECT_EQ(slider.doubleValue(), 2);
}

TEST(SliderTest, anArrowKeyMovesTheKnobAsSeen) {
  WideSlider slider(0.5);
  slider.nudge(0.1);
  EXPECT_DOUBLE_EQ(slider.doubleValue(), 0.6);
  slider.setRotation(std::numbers::pi);
  slider.nudge(0.1);
  EXPECT_DOUBLE_EQ(slider.doubleValue(), 0.5);
  slider.nudge(-0.25);
  EXPECT_DOUBLE_EQ(slider.doubleValue(), 0.75);
  slider.nudge(-5);
  EXPECT_EQ(slider.doubleValue(), 1);
}

TEST(SliderTest, everyInputSendsTheActionWithTheSlider) {
  int sent = 0;
  const Slider* sender = nullptr;
  WideSlider slider(0, [&](Slider& from) {
    ++sent;
    sender = &from;
  });
  slider.choose(0.5);
  slider.choose(0.5);
  slider.dragTo({.x = 105});
  slider.nudge(0);
  EXPECT_EQ(sent, 4);
  EXPECT_EQ(sender, &slider);
}

TEST(SliderTest, aDisabledOneIgnoresInput) {
  WideSlider slider(0.5, [](Slider&) { FAIL() << "a disabled slider sent its action"; });
  slider.setEnabled(false);
  slider.choose(1);
  slider.dragTo({.x = 5});
  slider.nudge(0.1);
  EXPECT_EQ(slider.doubleValue(), 0.5);
}

TEST(SliderTest, itTakesTheWidthThatItIsOfferedDownToItsLeast) {
  ShownControl<Slider> slider(0, 0, 1, nullptr);
  EXPECT_EQ(slider->measure(slider.host(), {}).size, (Size{.width = 128, .height = 24}));
  EXPECT_EQ(slider->measure(slider.host(), {.width = 300}).size.width, 300);
  EXPECT_EQ(slider->measure(slider.host(), {.width = 10}).size.width, 60);
}

}  // namespace
}  // namespace tarnwell::kit
