#include "host/painted/SliderGeometry.h"

#include <gtest/gtest.h>

#include <vector>

#include "kit/Printing.h"
#include "kit/controls/ranges/Slider.h"

namespace tarnwell::host_painted {
namespace {

// 210 wide: the knob's centre runs from 5 to 205.
struct WideSlider : kit::Slider {
  explicit WideSlider(double value = 0) : Slider(value, 0, 1, nullptr) {
    setFrame({.x = 40, .y = 30, .width = 210, .height = 24});
  }
};

TEST(SliderGeometryTest, tickMarksStandUnderTheKnobsPlaces) {
  WideSlider slider;
  const SliderGeometry geometry(slider);
  slider.setNumberOfTickMarks(11);
  for (int i = 0; i <= 10; ++i) {
    slider.setDoubleValue(i / 10.0);
    const kit::Rect tick = geometry.tickMark(i);
    EXPECT_DOUBLE_EQ(tick.x + tick.width / 2, geometry.knobCentre()) << i;
    EXPECT_EQ(tick.y, 19) << i;
    EXPECT_EQ(tick.size(), (kit::Size{.width = 2, .height = 5})) << i;
  }
  EXPECT_EQ(geometry.tickMark(0).x, 4);
  EXPECT_EQ(geometry.tickMark(10).x, 204);
}

TEST(SliderGeometryTest, aSingleTickMarkStandsInTheMiddle) {
  WideSlider slider;
  slider.setNumberOfTickMarks(1);
  EXPECT_EQ(SliderGeometry(slider).tickMark(0).x, 104);
}

TEST(SliderGeometryTest, aSliderThatWasNeverPlacedIsAsLargeAsItWouldLikeToBe) {
  kit::Slider slider(0, 0, 1, nullptr);
  slider.setNumberOfTickMarks(2);
  EXPECT_EQ(SliderGeometry(slider).tickMark(1), (kit::Rect{122, 19, 2, 5}));
}

TEST(SliderGeometryTest, theValueIsWhereThePointerIsSeen) {
  struct Row {
    double x = 0;
    double value = 0;
    double upsideDown = 0;
  };
  const std::vector<Row> table = {{5, 0, 1}, {205, 1, 0}, {105, 0.5, 0.5}, {25, 0.1, 0.9}};
  for (const Row& row : table) {
    WideSlider slider(0.3);
    EXPECT_DOUBLE_EQ(SliderGeometry(slider).valueAt({.x = row.x, .y = 2}), row.value) << row.x;
    slider.setUpsideDown(true);
    EXPECT_DOUBLE_EQ(SliderGeometry(slider).valueAt({.x = row.x, .y = 2}), row.upsideDown) << row.x;
  }
}

TEST(SliderGeometryTest, pastTheEndsTheValueIsOutsideOfTheRange) {
  WideSlider slider;
  const SliderGeometry geometry(slider);
  EXPECT_LT(geometry.valueAt({.x = 4}), 0);
  EXPECT_GT(geometry.valueAt({.x = 206}), 1);
  slider.setUpsideDown(true);
  EXPECT_GT(geometry.valueAt({.x = 4}), 1);
  EXPECT_LT(geometry.valueAt({.x = 206}), 0);
}

TEST(SliderGeometryTest, upsideDownTheCornersChangePlaces) {
  WideSlider slider;
  const SliderGeometry geometry(slider);
  EXPECT_EQ(geometry.turned({.x = 3, .y = 4}), (kit::Point{.x = 3, .y = 4}));
  slider.setUpsideDown(true);
  EXPECT_EQ(geometry.turned({.x = 3, .y = 4}), (kit::Point{.x = 207, .y = 20}));
}

TEST(SliderGeometryTest, aSliderWithoutATrackStaysAtItsMinimum) {
  WideSlider slider(0.3);
  slider.setFrame({.width = 8, .height = 24});
  EXPECT_EQ(SliderGeometry(slider).valueAt({.x = 8}), 0);
  EXPECT_EQ(SliderGeometry(slider).knobCentre(), 5);
}

TEST(SliderGeometryTest, aRangeWithoutLengthHasTheKnobAtItsStart) {
  const kit::Slider slider(5, 2, 2, nullptr);
  EXPECT_EQ(SliderGeometry(slider).knobCentre(), 5);
  EXPECT_EQ(SliderGeometry(slider).valueAt({.x = 100}), 2);
}

}  // namespace
}  // namespace tarnwell::host_painted
