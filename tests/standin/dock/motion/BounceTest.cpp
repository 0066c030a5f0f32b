#include "standin/dock/motion/Bounce.h"

#include <gtest/gtest.h>

#include <chrono>

namespace tarnwell::standin {
namespace {

constexpr Bounce::Time begin{std::chrono::hours(5)};

Bounce::Time after(double share) {
  return begin + std::chrono::duration_cast<Bounce::Clock::duration>(share * Bounce::duration);
}

TEST(BounceTest, whatWasNotLaunchedIsAtRest) {
  EXPECT_EQ(Bounce().height(begin), 0);
  EXPECT_FALSE(Bounce().isMoving(begin));
}

TEST(BounceTest, goesUpAndComesDownOnce) {
  const Bounce bounce(begin);
  EXPECT_EQ(bounce.height(begin), 0);
  EXPECT_NEAR(bounce.height(after(0.5)), 1, 1e-6);
  for (int frame = 1; frame <= 50; ++frame) {
    EXPECT_GT(bounce.height(after(frame / 100.0)), bounce.height(after((frame - 1) / 100.0)));
    EXPECT_LT(bounce.height(after(0.5 + frame / 100.0)), bounce.height(after(0.5 + (frame - 1) / 100.0)));
  }
  EXPECT_NEAR(bounce.height(after(1)), 0, 1e-6);
}

TEST(BounceTest, isFastNearTheShelfAndSlowAtTheTop) {
  const Bounce bounce(begin);
  EXPECT_GT(bounce.height(after(0.15)), 0.5);
  EXPECT_GT(bounce.height(after(0.4)), 0.95);
  EXPECT_GT(bounce.height(after(0.85)), 0.5);
}

TEST(BounceTest, comesToRest) {
  const Bounce bounce(begin);
  EXPECT_TRUE(bounce.isMoving(begin));
  EXPECT_TRUE(bounce.isMoving(after(0.99)));
  EXPECT_FALSE(bounce.isMoving(after(1.01)));
  EXPECT_EQ(bounce.height(after(1.01)), 0);
  EXPECT_EQ(bounce.height(after(1000)), 0);
}

}  // namespace
}  // namespace tarnwell::standin
