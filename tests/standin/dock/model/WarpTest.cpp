#include "standin/dock/model/Warp.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>

namespace tarnwell::standin {
namespace {

constexpr Rectangle windowFrame{100, 100, 400, 300};
constexpr Rectangle iconFrame{700, 820, 50, 50};
constexpr std::array everyEffect = {MinimizeEffect::genie, MinimizeEffect::scale, MinimizeEffect::suck};
constexpr std::array shares = {0.0, 0.25, 0.5, 0.75, 1.0};

TEST(WarpTest, startsOnTheWindow) {
  for (const auto effect : everyEffect) {
    const Warp warp(effect, windowFrame, iconFrame);
    for (const double u : shares) {
      for (const double v : shares) {
        EXPECT_NEAR(warp.at(u, v, 0).x, 100 + 400 * u, 1e-9);
        EXPECT_NEAR(warp.at(u, v, 0).y, 100 + 300 * v, 1e-9);
      }
    }
  }
}

TEST(WarpTest, endsWithinTheIcon) {
  for (const auto effect : everyEffect) {
    const Warp warp(effect, windowFrame, iconFrame);
    for (const double u : shares) {
      for (const double v : shares) {
        const Point end = warp.at(u, v, 1);
        EXPECT_TRUE(end.x >= iconFrame.x && end.x <= iconFrame.right()) << effectName(effect);
        EXPECT_TRUE(end.y >= iconFrame.y && end.y <= iconFrame.bottom()) << effectName(effect);
      }
    }
  }
}

TEST(WarpTest, nothingJumps) {
  for (const auto effect : everyEffect) {
    const Warp warp(effect, windowFrame, iconFrame);
    for (const double u : shares) {
      for (const double v : shares) {
        for (int frame = 0; frame < 100; ++frame) {
          const Point before = warp.at(u, v, frame / 100.0);
          const Point after = warp.at(u, v, (frame + 1) / 100.0);
          EXPECT_LT(std::hypot(after.x - before.x, after.y - before.y), 80) << effectName(effect) << frame;
        }
      }
    }
  }
}

TEST(WarpTest, theGeniesRowsStayLevelAndNarrowTowardsTheIcon) {
  const Warp warp(MinimizeEffect::genie, windowFrame, iconFrame);
  const auto width = [&](double v) { return warp.at(1, v, 0.5).x - warp.at(0, v, 0.5).x; };
  double last = 1000;
  for (const double v : shares) {
    EXPECT_DOUBLE_EQ(warp.at(0, v, 0.5).y, warp.at(1, v, 0.5).y);
    EXPECT_LE(width(v), last);
    last = width(v);
  }
  EXPECT_GT(width(0), 250);
  EXPECT_NEAR(width(1), iconFrame.width, 1e-9);
}

TEST(WarpTest, theScaledWindowStaysARectangle) {
  const Warp warp(MinimizeEffect::scale, windowFrame, iconFrame);
  EXPECT_EQ(warp.at(0, 0, 0.5), (Point{400, 460}));
  EXPECT_EQ(warp.at(1, 0, 0.5), (Point{625, 460}));
  EXPECT_EQ(warp.at(0, 1, 0.5), (Point{400, 635}));
}

TEST(WarpTest, theScaledWindowSetsOffAndArrivesGently) {
  const Warp warp(MinimizeEffect::scale, windowFrame, iconFrame);
  const auto way = [&](double progress) {
    return (warp.at(0, 0, progress).x - windowFrame.x) / (iconFrame.x - windowFrame.x);
  };
  EXPECT_EQ(way(0), 0);
  EXPECT_EQ(way(1), 1);
  double last = 0;
  for (int frame = 1; frame <= 100; ++frame) {
    EXPECT_GT(way(frame / 100.0), last);
    last = way(frame / 100.0);
  }
  EXPECT_LT(way(0.1), 0.05);
  EXPECT_GT(way(0.6) - way(0.4), 0.25);
  EXPECT_GT(way(0.9), 0.95);
}

TEST(WarpTest, theSuckedWindowIsPulledByItsNearestCorner) {
  const Warp warp(MinimizeEffect::suck, windowFrame, iconFrame);
  EXPECT_EQ(warp.at(1, 1, 0.5), iconFrame.center());
  EXPECT_EQ(warp.at(0, 0, 0.5), (Point{100, 100}));
  const Warp mirrored(MinimizeEffect::suck, windowFrame, {10, 820, 50, 50});
  EXPECT_EQ(mirrored.at(0, 1, 0.5), (Point{35, 845}));
  EXPECT_EQ(mirrored.at(1, 0, 0.5), (Point{500, 100}));
}

TEST(WarpTest, aWindowThatReachesBelowTheIconStillEndsInIt) {
  const Warp warp(MinimizeEffect::genie, {100, 700, 400, 300}, iconFrame);
  for (const double v : shares) {
    EXPECT_NEAR(warp.at(0, v, 1).y, iconFrame.center().y, 1e-9);
    EXPECT_LE(warp.at(0, v, 0.5).y, 1000);
  }
}

}  // namespace
}  // namespace tarnwell::standin
