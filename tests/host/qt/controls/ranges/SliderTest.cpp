#include <gtest/gtest.h>

#include <cmath>

#include "host/qt/Stage.h"
#include "host/qt/WidgetDriver.h"
#include "host/qt/controls/Controls.h"

namespace tarnwell::host_qt {
namespace {

// The knob's centre goes from 5 to 105.
constexpr kit::Rect sliderPlace = {.x = 20, .y = 20, .width = 110, .height = 24};

kit::Slider& addSlider(Stage& stage, double value, bool upsideDown) {
  auto& slider = stage.add(
      makeSlider(value, [](kit::Slider& moved) { moved.setDoubleValue(std::round(moved.doubleValue() * 100) / 100); }),
      sliderPlace);
  slider.setNumberOfTickMarks(11);
  slider.setUpsideDown(upsideDown);
  stage.show();
  return slider;
}

struct Turn {
  bool upsideDown = false;
  double valueAtTheLeftEnd = 0;
  double oneKeyToTheRight = 0;
  double valueAtThreeTenthsFromTheLeft = 0;
};

std::ostream& operator<<(std::ostream& out, const Turn& turn) {
  return out << (turn.upsideDown ? "upside down" : "upright");
}

class SliderTest : public testing::TestWithParam<Turn> {};

TEST_P(SliderTest, pressFetchesTheKnob) {
  Stage stage;
  auto& slider = addSlider(stage, 0.9, GetParam().upsideDown);
  driver::clickAt(slider, {.x = 35, .y = 12});
  EXPECT_DOUBLE_EQ(slider.doubleValue(), GetParam().valueAtThreeTenthsFromTheLeft);
}

TEST_P(SliderTest, dragFollowsThePointer) {
  Stage stage;
  auto& slider = addSlider(stage, 0.5, GetParam().upsideDown);
  driver::press(slider, {.x = 55, .y = 12});
  driver::moveTo(slider, {.x = 35, .y = 12});
  EXPECT_DOUBLE_EQ(slider.doubleValue(), GetParam().valueAtThreeTenthsFromTheLeft);
  driver::moveTo(slider, {.x = -40, .y = 12});
  EXPECT_DOUBLE_EQ(slider.doubleValue(), GetParam().valueAtTheLeftEnd);
  driver::release(slider, {.x = -40, .y = 12});
}

TEST_P(SliderTest, pressOnTheKnobMovesNothing) {
  Stage stage;
  auto& slider = addSlider(stage, 0.5, GetParam().upsideDown);
  driver::press(slider, {.x = 58, .y = 12});
  EXPECT_DOUBLE_EQ(slider.doubleValue(), 0.5);
  driver::moveTo(slider, {.x = 38, .y = 12});
  EXPECT_DOUBLE_EQ(slider.doubleValue(), GetParam().valueAtThreeTenthsFromTheLeft);
  driver::release(slider, {.x = 38, .y = 12});
}

TEST_P(SliderTest, keysMoveTheKnobAsItIsSeen) {
  const Turn turn = GetParam();
  Stage stage;
  auto& slider = addSlider(stage, 0.5, turn.upsideDown);
  driver::keyAt(slider, Qt::Key_Right);
  EXPECT_NEAR(slider.doubleValue(), 0.5 + turn.oneKeyToTheRight, 1e-9);
  driver::keyAt(slider, Qt::Key_Left);
  EXPECT_NEAR(slider.doubleValue(), 0.5, 1e-9);
  driver::keyAt(slider, Qt::Key_PageDown);
  EXPECT_NEAR(slider.doubleValue(), 0.5 - 10 * turn.oneKeyToTheRight, 1e-9);
  driver::keyAt(slider, Qt::Key_Home);
  EXPECT_DOUBLE_EQ(slider.doubleValue(), turn.valueAtTheLeftEnd);
  driver::keyAt(slider, Qt::Key_End);
  EXPECT_DOUBLE_EQ(slider.doubleValue(), 1 - turn.valueAtTheLeftEnd);
}

INSTANTIATE_TEST_SUITE_P(turns, SliderTest,
                         testing::Values(Turn{.upsideDown = false,
                                              .valueAtTheLeftEnd = 0,
                                              .oneKeyToTheRight = 0.01,
                                              .valueAtThreeTenthsFromTheLeft = 0.3},
                                         Turn{.upsideDown = true,
                                              .valueAtTheLeftEnd = 1,
                                              .oneKeyToTheRight = -0.01,
                                              .valueAtThreeTenthsFromTheLeft = 0.7}),
                         [](const auto& tested) { return tested.param.upsideDown ? "upsideDown" : "upright"; });

// Round edges are smoothed a little differently from one side than from the other.
int greatestDifference(const QImage& one, const QImage& other) {
  int greatest = 0;
  for (int y = 0; y < one.height(); ++y) {
    for (int x = 0; x < one.width(); ++x) {
      greatest = std::max(greatest, std::abs(one.pixelColor(x, y).lightness() - other.pixelColor(x, y).lightness()));
    }
  }
  return greatest;
}

TEST(SliderPictureTest, turnedPictureIsTheUprightOneUpsideDown) {
  Stage stage;
  auto& slider = addSlider(stage, 0.3, false);
  const QImage upright = driver::widget(slider).grab().toImage();
  slider.setUpsideDown(true);
  const QImage turned = driver::widget(slider).grab().toImage();
  EXPECT_GT(greatestDifference(turned, upright), 50);
  EXPECT_LT(greatestDifference(turned.mirrored(true, true), upright), 10);
}

TEST(SliderPictureTest, disabledSliderIsDimmedAndDeaf) {
  Stage stage;
  auto& slider = addSlider(stage, 0.3, false);
  const QImage lively = driver::widget(slider).grab().toImage();
  slider.setEnabled(false);
  EXPECT_NE(driver::widget(slider).grab().toImage(), lively);
  driver::click(slider);
  EXPECT_DOUBLE_EQ(slider.doubleValue(), 0.3);
}

}  // namespace
}  // namespace tarnwell::host_qt
