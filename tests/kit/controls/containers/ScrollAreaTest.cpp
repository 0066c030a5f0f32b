#include "kit/controls/containers/ScrollArea.h"

#include <gtest/gtest.h>

#include "kit/ShownControl.h"

namespace tarnwell::kit {
namespace {

// 100 points of 300 are seen.
class ScrollAreaTest : public testing::Test {
 protected:
  ScrollAreaTest() {
    area->setFrame({.width = 200, .height = 100});
    area->setContentHeight(300);
    area.told();
  }

  ShownControl<ScrollArea> area;
};

TEST_F(ScrollAreaTest, aChangeIsToldOnce) {
  area->setContentHeight(400);
  area->setContentHeight(400);
  EXPECT_EQ(area.told(), Lines{"scroll area: value"});
  area->scrollTo(50);
  area->scrollTo(50);
  EXPECT_EQ(area.told(), Lines{"scroll area: value"});
}

TEST_F(ScrollAreaTest, scrollingStopsAtTheContentsEnds) {
  area->scrollTo(500);
  EXPECT_EQ(area->offset(), 200);
  area->scrollTo(-5);
  EXPECT_EQ(area->offset(), 0);
}

TEST_F(ScrollAreaTest, whatThePlatformHasScrolledIsNotToldBack) {
  area->scrolled(60);
  EXPECT_EQ(area->offset(), 60);
  area->scrolled(230);
  EXPECT_EQ(area->offset(), 200);
  EXPECT_EQ(area.told(), Lines{});
  area->reveal({.y = 20, .height = 30});
  EXPECT_EQ(area->offset(), 20);
  EXPECT_EQ(area.told(), Lines{"scroll area: value"});
}

TEST_F(ScrollAreaTest, contentThatFitsDoesNotScroll) {
  area->setContentHeight(80);
  area->scrollTo(10);
  EXPECT_EQ(area->offset(), 0);
}

TEST_F(ScrollAreaTest, lowerContentMovesTheOffsetBack) {
  area->scrollTo(200);
  area->setContentHeight(150);
  EXPECT_EQ(area->offset(), 50);
}

TEST_F(ScrollAreaTest, aTallerAreaMovesTheOffsetBack) {
  area->scrollTo(200);
  area.told();
  area->setFrame({.width = 200, .height = 250});
  area->setContentHeight(300);
  EXPECT_EQ(area->offset(), 50);
  EXPECT_EQ(area.told(), (Lines{"scroll area: place", "scroll area: value"}));
}

TEST_F(ScrollAreaTest, revealingScrollsAsLittleAsItCan) {
  area->reveal({.y = 20, .height = 30});
  EXPECT_EQ(area->offset(), 0);
  area->reveal({.y = 120, .height = 30});
  EXPECT_EQ(area->offset(), 50);
  area->reveal({.y = 60, .height = 30});
  EXPECT_EQ(area->offset(), 50);
  area->reveal({.y = 10, .height = 30});
  EXPECT_EQ(area->offset(), 10);
  area->reveal({.y = 290, .height = 30});
  EXPECT_EQ(area->offset(), 200);
}

TEST_F(ScrollAreaTest, itTakesWhatItIsOffered) {
  EXPECT_EQ(area->measure({.width = 70, .height = 40}).size, (Size{.width = 70, .height = 40}));
  EXPECT_EQ(area->measure({.width = 70}).size, (Size{.width = 70, .height = 300}));
}

}  // namespace
}  // namespace tarnwell::kit
