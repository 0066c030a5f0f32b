#include "host/macos/window/WindowPeer.h"

#include <gtest/gtest.h>

#include <utility>

#include "host/macos/Stage.h"
#include "host/macos/ViewDriver.h"
#include "kit/control/Window.h"
#include "kit/controls/buttons/Button.h"
#include "kit/controls/text/TextField.h"

namespace tarnwell::host_macos {
namespace {

/// A window on the screen, with two fields and a button.
class WindowPeerTest : public testing::Test {
 protected:
  WindowPeerTest() {
    window.setContentSize({.width = 300, .height = 200});
    window.attach(stage.platform.host().peer(window));
    double top = 20;
    for (kit::Control* control : controls) {
      control->setFrame({.x = 20, .y = std::exchange(top, top + 50), .width = 100, .height = 24});
      control->attach(control->makePeer(stage.platform.host(), *window.peer()));
    }
    window.setControls(controls);
    window.setVisible(true);
    settle();
  }
  ~WindowPeerTest() override { window.setControls({}); }

  NSWindow* shown() const { return driver::window(window); }

  Stage stage;
  kit::Window window{"window", "Window"};
  kit::TextField first;
  kit::TextField second;
  kit::Button button;
  std::vector<kit::Control*> controls = {&first, &second, &button};
};

TEST_F(WindowPeerTest, theUpperEdgeStaysWhenTheHeightChanges) {
  const CGFloat before = NSMaxY([shown() frame]);
  window.setContentSize({.width = 300, .height = 90});
  EXPECT_EQ([[shown() contentView] frame].size.height, 90);
  EXPECT_EQ(NSMaxY([shown() frame]), before);
}

TEST_F(WindowPeerTest, closingAsksTheOwnerAndNoMore) {
  int asked = 0;
  window.setCloseAction([&asked] { ++asked; });
  [shown() performClose:nil];
  settle();
  EXPECT_EQ(asked, 1);
  EXPECT_TRUE([shown() isVisible]);
}

TEST_F(WindowPeerTest, tabGoesThroughTheControlsInTheirOrder) {
  EXPECT_EQ([driver::view(first) nextKeyView], driver::view(second));
  EXPECT_EQ([driver::view(second) nextKeyView], driver::view(button));
  EXPECT_EQ([driver::view(button) nextKeyView], driver::view(first));
}

TEST_F(WindowPeerTest, nothingHasTheKeyboardAtFirstAndTabBeginsAtTheFirstControl) {
  EXPECT_EQ(window.focusedControl(), nullptr);
  EXPECT_EQ([shown() firstResponder], shown());
  driver::key(window, @"\t");
  EXPECT_EQ(window.focusedControl(), &first);
}

TEST_F(WindowPeerTest, theControlThatHasTheKeyboardIsTold) {
  driver::click(second);
  EXPECT_EQ(window.focusedControl(), &second);
  driver::key(window, @"\t");
  // Buttons take it where the user has asked for that in the system's settings.
  kit::Control* next = [driver::view(button) canBecomeKeyView] ? static_cast<kit::Control*>(&button) : &first;
  EXPECT_EQ(window.focusedControl(), next);
}

TEST_F(WindowPeerTest, aPressOnTheGroundCommitsWhatIsBeingTyped) {
  std::string committed;
  first.setAction([&committed](const std::string& text) { committed = text; });
  driver::type(first, "typed");
  EXPECT_EQ(committed, "");
  driver::clickGround(window, 250, 150);
  EXPECT_EQ(committed, "typed");
}

TEST_F(WindowPeerTest, escapeAsACommandGivesUpWhatIsBeingTyped) {
  // As a screen reader does, so that the keyboard is elsewhere.
  first.type("typed");
  [driver::view(button) tryToPerform:@selector(cancelOperation:) with:nil];
  EXPECT_FALSE(first.isEditing());
  EXPECT_EQ(first.shownText(), "");
}

TEST_F(WindowPeerTest, aWindowOfThePlatformsTakesTheKeysAway) {
  EXPECT_EQ(stage.application->windows().keyWindow(), &window);
  NSWindow* other = [[[NSWindow alloc] initWithContentRect:NSMakeRect(0, 0, 100, 100)
                                                 styleMask:NSWindowStyleMaskTitled
                                                   backing:NSBackingStoreBuffered
                                                     defer:YES] autorelease];
  [other setReleasedWhenClosed:NO];
  [other makeKeyAndOrderFront:nil];
  settle();
  EXPECT_EQ(stage.application->windows().keyWindow(), nullptr);
  [other orderOut:nil];
  settle();
}

}  // namespace
}  // namespace tarnwell::host_macos
