#include "dockscreen/NSSliderWrapper.h"

#include <gtest/gtest.h>

#include <string>

#include "fixtures/StandardOutputCapture.h"
#include "host/headless/HeadlessHost.h"
#include "view/Stage.h"
#include "view/layout/Spacer.h"

namespace tarnwell::dockscreen {
namespace {

class NSSliderWrapperTest : public testing::Test {
 protected:
  NSSliderWrapper wrapper(double minValue = 0, double maxValue = 1) {
    return {.value = {.get = [this] { return value; }, .set = [this](double written) { value = written; }},
            .minValue = minValue,
            .maxValue = maxValue};
  }

  std::string printed() const { return output.text(); }

  double value = 0.5;
  host_headless::HeadlessHost host;
  fixtures::StandardOutputCapture output;
};

TEST_F(NSSliderWrapperTest, makingItPrintsElevenTickMarks) {
  NSSliderWrapper::Context context{.coordinator = wrapper().makeCoordinator(), .host = host};
  const auto slider = wrapper().makeNSView(context);
  EXPECT_EQ(slider->numberOfTickMarks(), 11);
  EXPECT_EQ(printed(),
            "Tick mark 0 rect: 4.0, 19.0, 2.0, 5.0\n"
            "Tick mark 1 rect: 15.8, 19.0, 2.0, 5.0\n"
            "Tick mark 2 rect: 27.6, 19.0, 2.0, 5.0\n"
            "Tick mark 3 rect: 39.4, 19.0, 2.0, 5.0\n"
            "Tick mark 4 rect: 51.2, 19.0, 2.0, 5.0\n"
            "Tick mark 5 rect: 63.0, 19.0, 2.0, 5.0\n"
            "Tick mark 6 rect: 74.8, 19.0, 2.0, 5.0\n"
            "Tick mark 7 rect: 86.6, 19.0, 2.0, 5.0\n"
            "Tick mark 8 rect: 98.4, 19.0, 2.0, 5.0\n"
            "Tick mark 9 rect: 110.2, 19.0, 2.0, 5.0\n"
            "Tick mark 10 rect: 122.0, 19.0, 2.0, 5.0\n");
}

TEST_F(NSSliderWrapperTest, theNumbersAreWhatTheHostSays) {
  class OtherHost final : public host_headless::HeadlessHost {
   public:
    kit::Rect rectOfTickMark(const kit::Slider& /*slider*/, int index) const override {
      return {.x = 100.0 + index, .y = 1, .width = 2, .height = 3};
    }
  };
  const OtherHost other;
  NSSliderWrapper::Context context{.coordinator = wrapper().makeCoordinator(), .host = other};
  wrapper().makeNSView(context);
  EXPECT_TRUE(printed().starts_with("Tick mark 0 rect: 100.0, 1.0, 2.0, 3.0\nTick mark 1 rect: 101.0, 1.0,"));
}

TEST_F(NSSliderWrapperTest, aSliderWithoutTickMarksPrintsNothing) {
  printTickMarks(kit::Slider(0.5, 0, 1, nullptr));
  EXPECT_EQ(printed(), "");
}

TEST_F(NSSliderWrapperTest, itStartsWithValueAndRange) {
  const view::Stage stage{wrapper(0, 2)};
  EXPECT_EQ(stage.dump(), "Slider: 0.5 of 0 to 2 by 0.02\n");
}

TEST_F(NSSliderWrapperTest, anUpdatePrintsNothing) {
  view::Stage stage{wrapper()};
  const std::string before = printed();
  value = 0.7;
  stage.show(wrapper());
  EXPECT_EQ(printed(), before);
}

TEST_F(NSSliderWrapperTest, aDragIsPrintedAndWrittenInHundredths) {
  struct Row {
    double dragged = 0;
    const char* line = "";
    double written = 0;
  };
  const view::Stage stage{wrapper()};
  auto& slider = stage.first<kit::Slider>();
  std::string expected = printed();
  for (const Row& row :
       {Row{0.456, "VALUE: 0.456\n", 0.46}, Row{0.125, "VALUE: 0.125\n", 0.13}, Row{0.145, "VALUE: 0.145\n", 0.14},
        Row{0.005, "VALUE: 0.005\n", 0.01}, Row{0.004, "VALUE: 0.004\n", 0}, Row{0.00001, "VALUE: 0.00001\n", 0},
        Row{1, "VALUE: 1.0\n", 1}, Row{3, "VALUE: 1.0\n", 1}, Row{-3, "VALUE: 0.0\n", 0}}) {
    slider.choose(row.dragged);
    expected += row.line;
    EXPECT_EQ(printed(), expected) << row.dragged;
    EXPECT_EQ(value, row.written) << row.dragged;
    EXPECT_EQ(slider.doubleValue(), row.written) << row.dragged;
  }
}

TEST_F(NSSliderWrapperTest, aValueSetElsewhereShowsAtTheNextUpdate) {
  view::Stage stage{wrapper()};
  value = 0.7;
  stage.show(wrapper());
  EXPECT_EQ(stage.first<kit::Slider>().doubleValue(), 0.7);
}

TEST_F(NSSliderWrapperTest, aValueAboveTheRangePutsTheKnobAtTheEndAndStays) {
  view::Stage stage{wrapper()};
  value = 5;
  stage.show(wrapper());
  EXPECT_EQ(stage.first<kit::Slider>().doubleValue(), 1);
  EXPECT_EQ(value, 5);
}

TEST_F(NSSliderWrapperTest, aLaterRangeDoesNotReachTheSlider) {
  view::Stage stage{wrapper(0, 1)};
  value = 3;
  stage.show(wrapper(-5, 5));
  EXPECT_EQ(stage.dump(), "Slider: 1 of 0 to 1 by 0.01\n");
}

TEST_F(NSSliderWrapperTest, theFirstBindingIsKept) {
  double other = 0;
  view::Stage stage{wrapper()};
  stage.show(NSSliderWrapper{.value = {.get = [&other] { return other; }, .set = [&other](double v) { other = v; }}});
  stage.first<kit::Slider>().choose(0.25);
  EXPECT_EQ(value, 0.25);
  EXPECT_EQ(other, 0);
}

TEST_F(NSSliderWrapperTest, aDragMayTakeItsOwnWindowAway) {
  view::Stage stage{view::EmptyView{}};
  stage.show(NSSliderWrapper{.value = {.get = [] { return 0.5; }, .set = [&stage](double) { stage.drop(); }}});
  stage.first<kit::Slider>().choose(0.25);
  EXPECT_TRUE(printed().ends_with("VALUE: 0.25\n"));
}

TEST_F(NSSliderWrapperTest, aSliderThatOutlivesItsCoordinatorIsSilent) {
  NSSliderWrapper::Context context{.coordinator = wrapper().makeCoordinator(), .host = host};
  const auto slider = wrapper().makeNSView(context);
  context.coordinator.reset();
  const std::string before = printed();
  slider->choose(0.25);
  EXPECT_EQ(value, 0.5);
  EXPECT_EQ(printed(), before);
}

TEST(NSSliderWrapperDeathTest, aNegativeNumberOfTickMarksIsAFault) {
  kit::Slider slider(0.5, 0, 1, nullptr);
  slider.setNumberOfTickMarks(-1);
  EXPECT_DEATH(printTickMarks(slider), "a slider reported a negative number of tick marks");
}

TEST(NSSliderWrapperDeathTest, theCoordinatorsPlainInitialiserIsNotSupported) {
  EXPECT_DEATH(NSSliderWrapper::Coordinator(),
               "use of unimplemented initializer 'init\\(\\)' for class 'NSSliderWrapper.Coordinator'");
}

}  // namespace
}  // namespace tarnwell::dockscreen
