#include "kit/controls/ranges/Slider.h"

#include <gtest/gtest.h>

#include <limits>

#include "kit/ShownControl.h"

namespace tarnwell::kit {
namespace {

constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr double infinity = std::numeric_limits<double>::infinity();

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
  const Slider slider(Rect{.x = 40, .y = 30, .width = 210, .height = 24});
  EXPECT_EQ(slider.frame(), (Rect{.x = 40, .y = 30, .width = 210, .height = 24}));
  EXPECT_EQ(slider.doubleValue(), 0);
  EXPECT_EQ(slider.minValue(), 0);
  EXPECT_EQ(slider.maxValue(), 1);
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
  slider->setUpsideDown(true);
  slider->setUpsideDown(true);
  EXPECT_EQ(slider.told(), Lines{"slider: style"});
}

TEST(SliderTest, theHostSaysWhereTickMarksAreWithoutAPeerToo) {
  host_headless::HeadlessHost host;
  Slider slider(Rect{.width = 210, .height = 24});
  slider.setNumberOfTickMarks(11);
  EXPECT_EQ(slider.rectOfTickMarkAtIndex(3), Rect{});
  slider.joinHost(host);
  EXPECT_EQ(slider.rectOfTickMarkAtIndex(3), host.rectOfTickMark(slider, 3));
  EXPECT_NE(slider.rectOfTickMarkAtIndex(3), Rect{});
}

TEST(SliderTest, aTickMarkThatDoesNotExistIsEmpty) {
  ShownControl<Slider> slider(0, 0, 1, nullptr);
  EXPECT_EQ(slider->rectOfTickMarkAtIndex(0), Rect{});
  slider->setNumberOfTickMarks(11);
  EXPECT_EQ(slider->rectOfTickMarkAtIndex(11), Rect{});
  EXPECT_EQ(slider->rectOfTickMarkAtIndex(-1), Rect{});
  EXPECT_NE(slider->rectOfTickMarkAtIndex(10), Rect{});
}

TEST(SliderTest, aRangeWithoutLengthHasOneValue) {
  Slider slider(5, 2, 2, nullptr);
  EXPECT_EQ(slider.doubleValue(), 2);
  slider.nudge(0.5);
  EXPECT_EQ(slider.doubleValue(), 2);
}

TEST(SliderTest, anArrowKeyMovesTheKnobAsSeen) {
  Slider slider(0.5, 0, 1, nullptr);
  slider.nudge(0.1);
  EXPECT_DOUBLE_EQ(slider.doubleValue(), 0.6);
  slider.setUpsideDown(true);
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
  Slider slider(0, 0, 1, [&](Slider& from) {
    ++sent;
    sender = &from;
  });
  slider.choose(0.5);
  slider.choose(0.5);
  slider.nudge(0);
  EXPECT_EQ(sent, 3);
  EXPECT_EQ(sender, &slider);
}

TEST(SliderTest, aDisabledOneIgnoresInput) {
  Slider slider(0.5, 0, 1, [](Slider&) { FAIL() << "a disabled slider sent its action"; });
  slider.setEnabled(false);
  slider.choose(1);
  slider.nudge(0.1);
  EXPECT_EQ(slider.doubleValue(), 0.5);
}

}  // namespace
}  // namespace tarnwell::kit
