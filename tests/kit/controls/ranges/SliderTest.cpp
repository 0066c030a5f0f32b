#include "kit/controls/ranges/Slider.h"

#include <gtest/gtest.h>

#include <limits>

#include "kit/ShownControl.h"

namespace tarnwell::kit {
namespace {

constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr double infinity = std::numeric_limits<double>::infinity();

bool press(Slider& slider, const char* key, unsigned modifiers = 0) {
  return slider.keyDown({.charactersIgnoringModifiers = key, .modifierFlags = modifiers});
}

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
  press(slider, rightArrowKey);
  EXPECT_EQ(slider.doubleValue(), 2);
}

TEST(SliderTest, aKeyMovesTheKnobAsSeen) {
  struct Row {
    const char* key = "";
    double upright = 0;
    double upsideDown = 0;
  };
  for (const Row& row : std::vector<Row>{{rightArrowKey, 51, 49},
                                         {upArrowKey, 51, 49},
                                         {leftArrowKey, 49, 51},
                                         {downArrowKey, 49, 51},
                                         {pageUpKey, 60, 40},
                                         {pageDownKey, 40, 60},
                                         {endKey, 100, 0},
                                         {homeKey, 0, 100}}) {
    for (const bool upsideDown : {false, true}) {
      Slider slider(50, 0, 100, nullptr);
      slider.setUpsideDown(upsideDown);
      EXPECT_TRUE(press(slider, row.key));
      EXPECT_DOUBLE_EQ(slider.doubleValue(), upsideDown ? row.upsideDown : row.upright);
    }
  }
}

TEST(SliderTest, anyOtherKeyBelongsToWhatTheSliderStandsIn) {
  Slider slider(0.5, 0, 1, [](Slider&) { FAIL() << "a key that means nothing sent the action"; });
  EXPECT_FALSE(press(slider, "x"));
  EXPECT_FALSE(press(slider, pageDownKey, commandFlag));
  EXPECT_FALSE(press(slider, ""));
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
  press(slider, leftArrowKey);
  EXPECT_EQ(sent, 3);
  EXPECT_EQ(sender, &slider);
}

TEST(SliderTest, aDisabledOneIgnoresInput) {
  Slider slider(0.5, 0, 1, [](Slider&) { FAIL() << "a disabled slider sent its action"; });
  slider.setEnabled(false);
  slider.choose(1);
  press(slider, rightArrowKey);
  EXPECT_EQ(slider.doubleValue(), 0.5);
}

}  // namespace
}  // namespace tarnwell::kit
