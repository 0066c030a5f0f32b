#include "standin/dock/model/LowerEdge.h"

#include <gtest/gtest.h>

#include <array>

namespace tarnwell::standin {
namespace {

constexpr Size window{1000, 600};

TEST(LowerEdgeTest, isReachedTwelvePointsAboveTheEdgeOfTheWindow) {
  LowerEdge edge;
  EXPECT_FALSE(edge.isReached());
  edge.enter({500, 100}, window);
  EXPECT_FALSE(edge.isReached());
  edge.move({500, 587}, window);
  EXPECT_FALSE(edge.isReached());
  edge.move({500, 588}, window);
  EXPECT_TRUE(edge.isReached());
  edge.move({500, 580}, window);
  EXPECT_FALSE(edge.isReached());
}

TEST(LowerEdgeTest, isReachedBelowTheWindowUntilThePointerComesBack) {
  LowerEdge edge;
  edge.enter({500, 560}, window);
  edge.move({500, 590}, window);
  edge.leave();
  EXPECT_TRUE(edge.isReached());
  edge.enter({500, 300}, window);
  EXPECT_FALSE(edge.isReached());
}

TEST(LowerEdgeTest, aFastPointerNeedNotBeSeenInTheStrip) {
  LowerEdge edge;
  edge.enter({500, 480}, window);
  edge.move({510, 540}, window);
  edge.leave();
  EXPECT_TRUE(edge.isReached());
}

TEST(LowerEdgeTest, isNotReachedByLeavingElsewhere) {
  struct Way {
    Point before;
    Point last;
  };
  constexpr std::array<Way, 5> ways = {{
      {{500, 100}, {500, 20}},   // above
      {{100, 540}, {20, 541}},   // to the left
      {{900, 480}, {980, 540}},  // to the right, though downwards
      {{995, 500}, {995, 592}},  // in the strip, but nearer to the right
      {{500, 300}, {501, 302}},  // under something that has opened there
  }};
  for (const Way& way : ways) {
    LowerEdge edge;
    edge.enter(way.before, window);
    edge.move(way.last, window);
    edge.leave();
    EXPECT_FALSE(edge.isReached()) << way.last.x << " " << way.last.y;
  }
}

TEST(LowerEdgeTest, whatHasOnlyJustComeHasNoDirection) {
  LowerEdge edge;
  edge.move({500, 100}, window);
  edge.enter({500, 550}, window);
  edge.leave();
  EXPECT_FALSE(edge.isReached());
}

}  // namespace
}  // namespace tarnwell::standin
