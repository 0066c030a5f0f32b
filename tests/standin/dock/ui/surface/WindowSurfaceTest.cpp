#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <cstdint>
#include <optional>
#include <string>

#include "fixtures/WaitFor.h"
#include "standin/MacSystem.h"
#include "standin/dock/ui/Display.h"

namespace tarnwell::standin {
namespace {

using fixtures::waitFor;

// Long enough for something to happen that should not.
constexpr std::chrono::milliseconds awhile(500);

// A Dock where programs do not place windows: its own one is in the upper left corner of the display.
class WindowSurfaceTest : public testing::Test {
 protected:
  static constexpr int width = 1000;
  static constexpr int height = 640;
  static constexpr int iconLine = height - 42;
  static constexpr int notebook = 372;     // the middle of its icon
  static constexpr int gap = 282;          // between two icons
  static constexpr int leftOfShelf = 182;  // as it is where it has grown

  void start() {
    Words environment = system_.environment();
    environment.insert(environment.end(),
                       {"DISPLAY=" + display_.name(), "WAYLAND_DISPLAY=none", "QT_QPA_PLATFORM=xcb"});
    pointAt(1270, 790);
    dock_.emplace(Words{SUPERVISOR_PATH}, environment);
    ASSERT_TRUE(waitFor([&] { return display_.windowCount("Dock") == 1 && isShown(); }));
    ASSERT_TRUE(waitFor([&] { return isHidden(); })) << dock_->errors();
  }

  void pointAt(int x, int y) const { display_.act("mousemove " + std::to_string(x) + " " + std::to_string(y)); }

  void reveal() const {
    pointAt(width / 2, height - 1);
    ASSERT_TRUE(waitFor([&] { return isShown(); }));
  }

  // The desktop behind it is of one colour from left to right.
  bool isShown() const { return display_.color(gap, iconLine) != display_.color(10, iconLine); }

  // On the way it reaches to the lower edge.
  bool isHidden() const { return !isShown() && display_.color(gap, height - 1) == display_.color(10, height - 1); }

  void clickNotebook(int button = 1) const {
    pointAt(notebook, iconLine);
    display_.act("click " + std::to_string(button));
  }

  // The page of the document "Ideas".
  bool showsIdeas() const { return display_.color(830, 330) == 0xffffff; }

  void write(const std::string& key, const std::string& value) const {
    const Outcome outcome = system_.shell("\"$D\" write com.apple.dock " + key + " " + value);
    ASSERT_EQ(outcome.status, 0) << outcome.errors;
  }

  // Ends the Dock and waits for the next one.
  void restart() const {
    const std::string before = fileContent(system_.dockLog());
    ::kill(std::stoi(before.substr(before.rfind("Dock[") + 5)), SIGTERM);
    ASSERT_TRUE(waitFor([&] { return fileContent(system_.dockLog()).size() > before.size(); }));
  }

  const Display& display() const { return display_; }
  Display& display() { return display_; }

 private:
  MacSystem system_;
  Display display_;
  std::optional<Process> dock_;
};

TEST_F(WindowSurfaceTest, livesInAWindowThatSaysSo) {
  start();
  EXPECT_NE(display().color(500, 20), 0U);
  EXPECT_EQ(display().color(1100, 700), 0U);
}

TEST_F(WindowSurfaceTest, comesWhereAFrameTakesTheLastPointsOfItsLowerEdge) {
  start();
  pointAt(width / 2, height - 11);
  EXPECT_TRUE(waitFor([&] { return isShown(); }));
}

TEST_F(WindowSurfaceTest, comesForAPointerThatLeavesItDownwards) {
  start();
  display().act("mousemove 500 540 mousemove 500 600 mousemove 500 700");
  EXPECT_TRUE(waitFor([&] { return isShown(); }));
  display().act("mousemove 500 300 mousemove 20 300 mousemove 1100 300");
  EXPECT_TRUE(waitFor([&] { return !isShown(); }));
}

TEST_F(WindowSurfaceTest, keepsItsWindowBelowTheOthersWhenTheDockIsStartedAgain) {
  start();
  constexpr std::uint32_t green = 0x00ff00;
  display().openWindow(0, 0, width, 300, green);
  EXPECT_TRUE(waitFor([&] { return display().color(500, 20) == green; }));
  pointAt(width / 2, height - 1);
  ASSERT_TRUE(waitFor([&] { return isShown(); }));
  for (int i = 0; i < 3; ++i) {
    restart();
  }
  pointAt(width / 2, height / 2);
  // The last one greets, and hides.
  EXPECT_TRUE(waitFor([&] { return isHidden(); }));
  EXPECT_EQ(display().color(500, 20), green);
  EXPECT_EQ(display().windowCount("Dock"), 1);
  // It goes by what was set since.
  write("autohide-delay", "-float 3600");
  restart();
  EXPECT_TRUE(waitFor([&] { return isShown(); }));
  EXPECT_TRUE(waitFor([&] { return isHidden(); }));
  pointAt(width / 2, height - 1);
  EXPECT_FALSE(waitFor([&] { return isShown(); }, awhile));
}

TEST_F(WindowSurfaceTest, staysWhileThePointerIsOnItWhereADocumentOpensBelowIt) {
  write("scroll-to-open", "-bool true");
  start();
  reveal();
  // One of its documents is where the icon is.
  clickNotebook();
  EXPECT_TRUE(waitFor([&] { return showsIdeas(); }));
  EXPECT_FALSE(waitFor([&] { return !isShown(); }, awhile));
  const std::uint32_t before = display().color(20, 300);
  clickNotebook(4);
  EXPECT_TRUE(waitFor([&] { return display().color(20, 300) != before; }));
  display().act("key Escape");
  EXPECT_TRUE(waitFor([&] { return display().color(20, 300) == before; }));
  pointAt(1270, 790);
  EXPECT_TRUE(waitFor([&] { return !isShown(); }));
}

TEST_F(WindowSurfaceTest, documentsHearOfKeysOnceTheyWereClicked) {
  start();
  reveal();
  clickNotebook();
  EXPECT_TRUE(waitFor([&] { return showsIdeas(); }));
  pointAt(830, 330);
  display().act("click 1 key ctrl+w");
  EXPECT_TRUE(waitFor([&] { return !showsIdeas(); }));
}

TEST_F(WindowSurfaceTest, aWindowOnItsWayIntoTheDockIsAboveIt) {
  start();
  reveal();
  clickNotebook();
  EXPECT_TRUE(waitFor([&] { return showsIdeas(); }));
  display().act("mousemove 794 128 keydown Shift_L click 1 keyup Shift_L");
  // On the shelf, which is never as white as a page, but above the icons.
  EXPECT_TRUE(waitFor([&] { return display().color(735, iconLine - 25) == 0xffffff; }));
}

TEST_F(WindowSurfaceTest, windowsSpreadOutOverAllOfItThroughoutAChangeOfItsSize) {
  write("scroll-to-open", "-bool true");
  start();
  const std::uint32_t desktop = display().color(20, iconLine);
  reveal();
  clickNotebook(4);
  EXPECT_TRUE(waitFor([&] { return display().color(20, iconLine) != desktop; }));
  // Nothing of the dock is in the picture that is dimmed behind it.
  EXPECT_EQ(display().color(leftOfShelf, iconLine), display().color(20, iconLine));
  constexpr int wider = 1200;
  display().act("search --onlyvisible --name '^Dock$' windowsize " + std::to_string(wider) + " 700");
  const auto isDark = [&](int x, int y) { return (display().color(x, y) & 0xffU) < 0x90; };
  EXPECT_TRUE(waitFor([&] { return isDark(20, 20) && isDark(wider - 20, 20) && isDark(wider - 20, 680); }));
}

}  // namespace
}  // namespace tarnwell::standin
