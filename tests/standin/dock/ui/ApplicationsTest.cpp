#include <gtest/gtest.h>
#include <sys/stat.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdint>
#include <filesystem>
#include <string>

#include "fixtures/WaitFor.h"
#include "standin/dock/motion/ScrollGesture.h"
#include "standin/dock/ui/ShownDock.h"

namespace tarnwell::standin {
namespace {

using fixtures::waitFor;

// Long enough for the next step of the wheel to be another movement.
constexpr std::chrono::milliseconds handAtRest(ScrollGesture::pause + 50);

// Much longer than a jump, with the click before it.
constexpr std::chrono::seconds watch(3);

std::string iconPlace(int application) {
  return std::to_string(ShownDock::iconColumn(application)) + " " + std::to_string(ShownDock::iconLine);
}

// What the icon of the album looks like while the album is hidden and not pointed at.
Colors hiddenIcon(const std::string& showHidden) {
  ShownDock dock;
  dock.write("showhidden", "-bool " + showHidden);
  // Long enough to look at a dock that the pointer has left.
  dock.write("autohide-time-modifier", "-float 0");
  dock.start();
  dock.reveal();
  dock.click(ShownDock::album);
  EXPECT_TRUE(waitFor([&] { return dock.display().windowCount("Mountains") == 1; }));
  dock.click(ShownDock::album, 3);
  dock.display().act("key Down Return");
  EXPECT_TRUE(waitFor([&] { return dock.display().windowCount("Mountains") == 0; }));
  dock.hide();
  dock.reveal();
  // The edge is away from the icons, which are at rest then.
  return dock.display().colors(ShownDock::iconColumn(ShownDock::album) - 20, ShownDock::iconLine - 20, 40, 40);
}

TEST(ApplicationsTest, theIconOfAHiddenApplicationIsDimmedWhereThatIsSet) {
  const Colors plain = hiddenIcon("false");
  const Colors dimmed = hiddenIcon("true");
  EXPECT_GT(differences(plain, dimmed), plain.size() / 2);
}

TEST(ApplicationsTest, aButtonThatIsLetGoAwayFromTheIconDoesNothing) {
  ShownDock dock;
  const Display& display = dock.display();
  const std::string column = std::to_string(ShownDock::iconColumn(ShownDock::notebook));
  dock.start();
  dock.reveal();
  const Colors before = display.colors(0, 0, Display::width, 500);
  for (const char* button : {"1", "3"}) {
    display.act("mousemove " + iconPlace(ShownDock::notebook) + " mousedown " + button + " mousemove " + column +
                " 300 mouseup " + button);
    // Neither its windows nor its menu.
    EXPECT_FALSE(waitFor([&] { return display.windowCount("Ideas") > 0; }, handAtRest)) << button;
    EXPECT_TRUE(waitFor([&] { return display.colors(0, 0, Display::width, 500) == before; })) << button;
    dock.hide();
    dock.reveal();
  }
  dock.openNotebook();
}

TEST(ApplicationsTest, theMenuOfAnIconIsARoundedSheetOfGlass) {
  ShownDock dock;
  Display& display = dock.display();
  dock.start();
  dock.reveal();
  constexpr std::uint32_t green = 0x00ff00;
  display.openWindow(0, 0, Display::width, 680, green);
  EXPECT_TRUE(waitFor([&] { return display.color(640, 300) == green; }));
  dock.click(ShownDock::notebook, 3);
  const int column = ShownDock::iconColumn(ShownDock::notebook);
  constexpr int above = 500;
  const auto lineOf = [&](int x) {
    const Colors colors = display.colors(x, above, 1, 180);
    return std::ranges::find_if(colors, [](std::uint32_t color) { return color != green; }) - colors.begin();
  };
  // It may be there before it is painted.
  EXPECT_TRUE(waitFor([&] {
    const auto line = static_cast<int>(lineOf(column));
    return line < 180 && display.color(column, above + line) != 0;
  }));
  const auto top = static_cast<int>(lineOf(column)) + above;
  const Colors across = display.colors(column - 100, top + 20, 200, 1);
  const auto left =
      static_cast<int>(std::ranges::find_if(across, [](auto color) { return color != green; }) - across.begin()) +
      column - 100;
  // Its corner is what is behind it, and its inside has a tinge of that.
  EXPECT_EQ(display.color(left, top), green);
  const std::uint32_t glass = display.color(left + 8, top + 20);
  EXPECT_GT((glass >> 8U) & 0xffU, (glass >> 16U) & 0xffU);
  EXPECT_GT((glass >> 8U) & 0xffU, glass & 0xffU);
  // The entry below the pointer says so.
  const auto isBlue = [&] { return (display.color(left + 12, top + 20) & 0xffU) > 0xd0; };
  const std::uint32_t before = display.color(left + 12, top + 20);
  display.act("mousemove " + std::to_string(left + 40) + " " + std::to_string(top + 20));
  EXPECT_TRUE(waitFor([&] { return display.color(left + 12, top + 20) != before && isBlue(); }));
}

TEST(ApplicationsTest, theIconOfALaunchedApplicationJumpsOnce) {
  ShownDock dock;
  const Display& display = dock.display();
  // Between the label of an icon below the pointer and the icon, which is there only while it jumps.
  constexpr int label = Display::height - 112;
  constexpr int belowLabel = Display::height - 91;
  dock.start();
  dock.reveal();
  const auto isAt = [&](int application, int line) {
    return display.color(ShownDock::iconColumn(application), line) != 0;
  };
  const auto rests = [&](int application) { return isAt(application, label) && !isAt(application, belowLabel); };
  const auto jumps = [&](int application) {
    display.act("mousemove " + iconPlace(application));
    EXPECT_TRUE(waitFor([&] { return rests(application); }));
    // A jump is short: the watch begins before the click.
    const Process click = dock.beginClick();
    const bool hasJumped = waitFor([&] { return isAt(application, belowLabel); }, watch);
    EXPECT_TRUE(waitFor([&] { return rests(application); }));
    return hasJumped;
  };
  // On a busy machine a jump may go by between two pictures, but not each one.
  const auto applications = {ShownDock::letters, ShownDock::album, ShownDock::files};
  const auto* const seen = std::ranges::find_if(applications, jumps);
  ASSERT_NE(seen, applications.end());
  // Now it runs.
  EXPECT_FALSE(jumps(*seen));
}

TEST(ApplicationsTest, onlyRunningApplicationsAreThereWhereThatIsSet) {
  ShownDock dock;
  dock.write("autohide-time-modifier", "-float 0");
  dock.start();
  dock.reveal();
  EXPECT_NE(dock.display().color(ShownDock::iconColumn(ShownDock::files), ShownDock::iconLine), 0U);
  dock.write("static-only", "-bool true");
  dock.hide();
  ::kill(dock.process(), SIGTERM);
  dock.display().act("mousemove 640 799");
  // Three applications and the trash are half as wide as eight and the trash.
  EXPECT_TRUE(waitFor([&] { return dock.display().color(640, ShownDock::iconLine) != 0; }));
  EXPECT_EQ(dock.display().color(ShownDock::iconColumn(ShownDock::files), ShownDock::iconLine), 0U);
}

TEST(ApplicationsTest, aClickHidesTheOthersWhereThatIsSet) {
  for (const bool isSet : {false, true}) {
    ShownDock dock;
    dock.write("single-app", isSet ? "-bool true" : "-bool false");
    dock.start();
    dock.reveal();
    dock.openNotebook();
    dock.click(ShownDock::album);
    EXPECT_TRUE(waitFor([&] { return dock.display().windowCount("Mountains") == 1; }));
    EXPECT_TRUE(waitFor([&] { return dock.display().windowCount("Ideas") == (isSet ? 0 : 1); })) << isSet;
  }
}

TEST(ApplicationsTest, aPipeInThePlaceOfWhatBecameOfThemHoldsNothingUp) {
  ShownDock dock;
  const std::filesystem::path desk = dock.system().root() + "/Library/Application Support/Dock/desk";
  std::filesystem::create_directories(desk.parent_path());
  ASSERT_EQ(::mkfifo(desk.c_str(), 0600), 0);
  dock.start();
}

TEST(ApplicationsTest, windowsOfARestartedDockAreBelowTheOthers) {
  ShownDock dock;
  Display& display = dock.display();
  dock.start();
  dock.reveal();
  dock.openNotebook();
  dock.hide();
  constexpr std::uint32_t green = 0x00ff00;
  display.openWindow(400, 100, 500, 450, green);
  const auto isGreen = [&] { return display.color(600, 350) == green; };
  EXPECT_TRUE(waitFor(isGreen));
  dock.restart();
  EXPECT_EQ(display.windowCount("Ideas"), 1);
  EXPECT_TRUE(isGreen());
  // One that is chosen comes up.
  dock.reveal();
  dock.click(ShownDock::notebook);
  EXPECT_TRUE(waitFor([&] { return !isGreen(); }));
}

TEST(ApplicationsTest, scrollingUpSpreadsTheWindowsOutWhereThatIsSet) {
  ShownDock dock;
  const Display& display = dock.display();
  dock.start();
  dock.reveal();
  dock.openNotebook();
  dock.click(ShownDock::notebook, 4);
  dock.write("scroll-to-open", "-bool true");
  dock.restart();
  EXPECT_EQ(display.windowCount("Windows"), 0);
  // The windows are where they were: applications outlive the dock.
  EXPECT_TRUE(waitFor([&] { return display.windowCount("Ideas") == 1; }));
  dock.reveal();
  // A long movement of the hand, which opens and does not close.
  display.act("mousemove " + iconPlace(ShownDock::notebook) + " click --repeat 12 --delay 50 4");
  EXPECT_TRUE(waitFor([&] { return display.windowCount("Windows") == 1; }));
  EXPECT_FALSE(waitFor([&] { return display.windowCount("Windows") == 0; }, handAtRest));
  dock.click(ShownDock::notebook, 4);
  EXPECT_TRUE(waitFor([&] { return display.windowCount("Windows") == 0; }));
}

TEST(ApplicationsTest, escapeEndsTheSpreadAndTheDockHidesAfterItHoweverOftenItWasOpened) {
  ShownDock dock;
  const Display& display = dock.display();
  dock.write("scroll-to-open", "-bool true");
  dock.start();
  dock.reveal();
  dock.click(ShownDock::notebook, 4);
  EXPECT_TRUE(waitFor([&] { return display.windowCount("Windows") == 1; }));
  EXPECT_FALSE(waitFor([&] { return display.windowCount("Windows") == 0; }, handAtRest));
  // The dock is above it, and can be used.
  EXPECT_NE(display.color(422, ShownDock::iconLine), display.color(20, ShownDock::iconLine));
  // The second scroll comes while the spread is still closing.
  display.act("mousemove " + iconPlace(ShownDock::notebook) + " key Escape click 4");
  EXPECT_FALSE(waitFor([&] { return display.windowCount("Windows") == 0; }, handAtRest));
  display.act("key Escape");
  EXPECT_TRUE(waitFor([&] { return display.windowCount("Windows") == 0; }));
  dock.hide();
}

TEST(ApplicationsTest, noOtherKeyEndsTheSpreadWhereThereIsNoEscape) {
  ShownDock dock;
  Display& display = dock.display();
  display.dropEscapeKey();
  dock.write("scroll-to-open", "-bool true");
  dock.start();
  dock.reveal();
  dock.click(ShownDock::notebook, 4);
  EXPECT_TRUE(waitFor([&] { return display.windowCount("Windows") == 1; }));
  display.act("key a");
  EXPECT_FALSE(waitFor([&] { return display.windowCount("Windows") == 0; }, handAtRest));
  dock.click(ShownDock::notebook, 4);
  EXPECT_TRUE(waitFor([&] { return display.windowCount("Windows") == 0; }));
}

}  // namespace
}  // namespace tarnwell::standin
