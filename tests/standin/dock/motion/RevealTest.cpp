#include "standin/dock/motion/Reveal.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace tarnwell::standin {
namespace {

using Seconds = Reveal::Seconds;

/// A dock with a delay of 0.2 and a duration of 0.5 seconds, and a clock.
class RevealTest : public testing::Test {
 protected:
  void wait(double seconds) { now_ += std::chrono::duration_cast<Reveal::Clock::duration>(Seconds(seconds)); }
  void point(PointerPlace place) { reveal_.setPointer(place, now_); }
  double shown() { return reveal_.shown(now_); }
  bool isMoving() { return reveal_.isMoving(now_); }
  double secondsToDeadline() { return Seconds(*reveal_.deadline() - now_).count(); }

  void hideAfterGreeting() {
    wait(10);
    ASSERT_TRUE(isMoving() || shown() == 0);
    wait(1);
    ASSERT_EQ(shown(), 0);
  }

  Reveal::Time now_;
  Reveal reveal_{Seconds(0.2), Seconds(0.5), now_};
};

TEST_F(RevealTest, greetsAndThenHides) {
  EXPECT_EQ(shown(), 1);
  EXPECT_DOUBLE_EQ(secondsToDeadline(), 2);
  wait(2.25);
  EXPECT_TRUE(isMoving());
  EXPECT_NEAR(shown(), 0.65, 0.001);
  wait(0.26);
  EXPECT_EQ(shown(), 0);
  EXPECT_FALSE(isMoving());
  EXPECT_FALSE(reveal_.deadline());
}

TEST_F(RevealTest, comesAfterTheDelayAndIsThereAfterTheDuration) {
  hideAfterGreeting();
  point(PointerPlace::atEdge);
  EXPECT_DOUBLE_EQ(secondsToDeadline(), 0.2);
  wait(0.199);
  EXPECT_EQ(shown(), 0);
  EXPECT_FALSE(isMoving());
  wait(0.002);
  EXPECT_GT(shown(), 0);
  EXPECT_TRUE(isMoving());
  wait(0.498);
  EXPECT_LT(shown(), 1);
  wait(0.002);
  EXPECT_EQ(shown(), 1);
  EXPECT_FALSE(isMoving());
}

TEST_F(RevealTest, aLateCallMakesNothingLonger) {
  hideAfterGreeting();
  point(PointerPlace::atEdge);
  wait(0.2 + 0.25);
  EXPECT_NEAR(shown(), 0.65, 0.001);
}

TEST_F(RevealTest, leavingTheEdgeBeforeTheDelayIsOverCancels) {
  hideAfterGreeting();
  point(PointerPlace::atEdge);
  wait(0.15);
  point(PointerPlace::elsewhere);
  EXPECT_FALSE(reveal_.deadline());
  wait(1);
  EXPECT_EQ(shown(), 0);
  point(PointerPlace::atEdge);
  wait(0.15);
  EXPECT_EQ(shown(), 0);
}

TEST_F(RevealTest, aSlipOfTheHandDoesNotHide) {
  point(PointerPlace::onDock);
  wait(5);
  EXPECT_EQ(shown(), 1);
  point(PointerPlace::elsewhere);
  wait(0.05);
  point(PointerPlace::atEdge);
  wait(5);
  EXPECT_EQ(shown(), 1);
}

TEST_F(RevealTest, turnsBackFromWhereItIs) {
  hideAfterGreeting();
  point(PointerPlace::atEdge);
  wait(0.7);
  point(PointerPlace::elsewhere);
  wait(0.1 + 0.25);
  const double half = shown();
  EXPECT_NEAR(half, 0.65, 0.001);
  point(PointerPlace::onDock);
  EXPECT_EQ(shown(), half);
  wait(0.251);
  EXPECT_EQ(shown(), 1);
}

TEST_F(RevealTest, whatHoldsItBringsItWithoutDelay) {
  hideAfterGreeting();
  reveal_.setHeld(true, now_);
  wait(0.51);
  EXPECT_EQ(shown(), 1);
  wait(100);
  EXPECT_EQ(shown(), 1);
  reveal_.setHeld(false, now_);
  wait(0.1 + 0.51);
  EXPECT_EQ(shown(), 0);
}

TEST_F(RevealTest, neverGoesBackOnTheWayIn) {
  hideAfterGreeting();
  point(PointerPlace::atEdge);
  double last = 0;
  for (int frame = 0; frame < 100; ++frame) {
    wait(0.01);
    EXPECT_GE(shown(), last);
    last = shown();
  }
  EXPECT_EQ(last, 1);
}

TEST(RevealLimitsTest, unusableTimesCountAsNone) {
  for (const double value : {0.0, -1.0, std::nan(""), std::numeric_limits<double>::infinity()}) {
    Reveal::Time now;
    Reveal reveal(Seconds{value}, Seconds{value}, now);
    now += std::chrono::seconds(3);
    EXPECT_EQ(reveal.shown(now), 0);
    reveal.setPointer(PointerPlace::atEdge, now);
    EXPECT_EQ(reveal.shown(now), 1);
  }
}

TEST(RevealLimitsTest, anHourIsTheMost) {
  Reveal::Time now;
  Reveal reveal(Seconds{1e300}, Seconds{0}, now);
  now += std::chrono::seconds(3);
  EXPECT_EQ(reveal.shown(now), 0);
  reveal.setPointer(PointerPlace::atEdge, now);
  EXPECT_EQ(*reveal.deadline() - now, std::chrono::hours(1));
}

}  // namespace
}  // namespace tarnwell::standin
