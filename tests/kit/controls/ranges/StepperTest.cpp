#include "kit/controls/ranges/Stepper.h"

#include <gtest/gtest.h>

#include <limits>

#include "kit/ShownControl.h"

namespace tarnwell::kit {
namespace {

constexpr Stepper::Range hundredths{.least = 0, .most = 100, .step = 0.01};
constexpr double undefined = std::numeric_limits<double>::quiet_NaN();
constexpr double unbounded = std::numeric_limits<double>::infinity();

TEST(StepperTest, settingItTellsThePeerOnceAndSendsNothing) {
  for (const double value : {5.0, undefined, unbounded}) {
    ShownControl<Stepper> stepper;
    stepper->setAction([](double) { FAIL() << "setting a value sent the action"; });
    stepper->setValue(value);
    stepper->setValue(value);
    EXPECT_EQ(stepper.told(), Lines{"stepper: value"}) << value;
  }
}

TEST(StepperTest, aSetValueStaysThoughItIsOutOfTheRange) {
  Stepper stepper;
  stepper.setRange(hundredths);
  stepper.setValue(200);
  EXPECT_EQ(stepper.value(), 200);
}

TEST(StepperTest, stepsEndAtTheRange) {
  struct Row {
    double before = 0;
    double up = 0;
    double down = 0;
  };
  const std::vector<Row> table = {
      {0, 0.01, 0},      {0.5, 0.51, 0.49},     {99.99, 100, 99.98}, {100, 100, 99.99}, {200, 100, 100},
      {-5, 0, 0},        {unbounded, 100, 100}, {-unbounded, 0, 0},  {0.005, 0.015, 0}, {99.995, 100, 99.985},
      {1e300, 100, 100},
  };
  for (const Row& row : table) {
    Stepper stepper;
    stepper.setRange(hundredths);
    stepper.setValue(row.before);
    stepper.increment();
    EXPECT_DOUBLE_EQ(stepper.value(), row.up) << row.before;
    stepper.setValue(row.before);
    stepper.decrement();
    EXPECT_NEAR(stepper.value(), row.down, 1e-12) << row.before;
  }
}

TEST(StepperTest, aChosenValueIsHeldToTheRangeAndSent) {
  Stepper stepper;
  stepper.setRange(hundredths);
  std::vector<double> sent;
  stepper.setAction([&sent](double value) { sent.push_back(value); });
  for (const double value : {5.0, 5.0, -1.0, unbounded, undefined}) {
    stepper.choose(value);
  }
  EXPECT_EQ(sent, (std::vector<double>{5, 5, 0, 100}));
  EXPECT_EQ(stepper.value(), 100);
  stepper.setEnabled(false);
  stepper.choose(1);
  EXPECT_EQ(stepper.value(), 100);
}

TEST(StepperTest, everyStepSendsTheValueEvenAtTheEnd) {
  Stepper stepper;
  std::vector<double> sent;
  stepper.setAction([&sent](double value) { sent.push_back(value); });
  stepper.setValue(99);
  stepper.increment();
  stepper.increment();
  EXPECT_EQ(sent, (std::vector<double>{100, 100}));
}

TEST(StepperTest, theFirstRepeatWaitsAndTheNextComeFasterAndFaster) {
  EXPECT_GE(Stepper::repeatDelay(1), 3 * Stepper::repeatDelay(2));
  for (int steps = 1; steps < 1000; ++steps) {
    EXPECT_GE(Stepper::repeatDelay(steps), Stepper::repeatDelay(steps + 1));
  }
  EXPECT_LT(Stepper::repeatDelay(20), Stepper::repeatDelay(2) / 2);
  EXPECT_GE(Stepper::repeatDelay(1000), 10);
}

TEST(StepperTest, fromWhatIsNoNumberThereIsNoStep) {
  Stepper stepper;
  stepper.setAction([](double) { FAIL() << "a step from a nan sent the action"; });
  stepper.setValue(undefined);
  stepper.increment();
  stepper.decrement();
  EXPECT_TRUE(stepper.value() != stepper.value());
}

TEST(StepperTest, aDisabledOneIgnoresSteps) {
  Stepper stepper;
  stepper.setAction([](double) { FAIL() << "a disabled stepper sent its action"; });
  stepper.setEnabled(false);
  stepper.increment();
  stepper.decrement();
  EXPECT_EQ(stepper.value(), 0);
}

}  // namespace
}  // namespace tarnwell::kit
