#include "standin/dock/motion/ScrollGesture.h"

#include <gtest/gtest.h>

namespace tarnwell::standin {
namespace {

constexpr int notch = ScrollGesture::notch;
constexpr unsigned long start = 100'000;

TEST(ScrollGestureTest, aNotchUpActsAndOneDownDoesNot) {
  ScrollGesture gesture;
  EXPECT_FALSE(gesture.step(-notch, start));
  EXPECT_TRUE(gesture.step(notch, start + ScrollGesture::pause));
}

TEST(ScrollGestureTest, aLongMovementActsOnceHoweverLongItGoesOn) {
  ScrollGesture gesture;
  int acts = 0;
  for (unsigned long time = start; time < start + 10 * ScrollGesture::pause; time += ScrollGesture::pause / 2) {
    acts += gesture.step(notch, time) ? 1 : 0;
  }
  EXPECT_EQ(acts, 1);
}

TEST(ScrollGestureTest, actsAgainOnceTheWheelHasRested) {
  ScrollGesture gesture;
  EXPECT_TRUE(gesture.step(notch, start));
  EXPECT_FALSE(gesture.step(notch, start + ScrollGesture::pause - 1));
  EXPECT_TRUE(gesture.step(notch, start + 2 * ScrollGesture::pause));
}

TEST(ScrollGestureTest, smallStepsAddUpWithinAMovementOnly) {
  ScrollGesture gesture;
  EXPECT_FALSE(gesture.step(notch / 2, start));
  EXPECT_FALSE(gesture.step(notch / 2, start + ScrollGesture::pause));
  EXPECT_TRUE(gesture.step(notch / 2, start + ScrollGesture::pause + 1));
}

}  // namespace
}  // namespace tarnwell::standin
