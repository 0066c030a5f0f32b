#include "kit/controls/containers/ScrollArea.h"

#include <gtest/gtest.h>

#include "host/macos/Stage.h"
#include "host/macos/ViewDriver.h"
#include "kit/control/Window.h"

namespace tarnwell::host_macos {
namespace {

/// What shows 50 points of 200.
class ScrollAreaPeerTest : public testing::Test {
 protected:
  ScrollAreaPeerTest() {
    window.attach(stage.platform.host().peer(window));
    area.attach(area.makePeer(stage.platform.host(), *window.peer()));
    window.setControls({&area});
    area.setFrame({.x = 0, .y = 0, .width = 100, .height = 50});
    area.setContentHeight(200);
  }
  ~ScrollAreaPeerTest() override { window.setControls({}); }

  NSClipView* clip() const { return [static_cast<NSScrollView*>(driver::view(area)) contentView]; }
  double shown() const { return [clip() bounds].origin.y; }
  void scrollByHand(double offset) { [clip() scrollToPoint:NSMakePoint(0, offset)]; }

  Stage stage;
  kit::Window window{"window", "Window"};
  kit::ScrollArea area;
};

TEST_F(ScrollAreaPeerTest, whatTheUserScrollsIsTold) {
  scrollByHand(30);
  EXPECT_EQ(area.offset(), 30);
}

TEST_F(ScrollAreaPeerTest, whatIsScrolledFromHereIsShown) {
  area.scrollTo(40);
  EXPECT_EQ(shown(), 40);
}

TEST_F(ScrollAreaPeerTest, whatANewFrameMovesIsNotTheUsersDoing) {
  area.scrollTo(150);
  area.setFrame({.x = 0, .y = 0, .width = 100, .height = 120});
  area.setContentHeight(400);
  EXPECT_EQ(area.offset(), 150);
  EXPECT_EQ(shown(), 150);
}

}  // namespace
}  // namespace tarnwell::host_macos
