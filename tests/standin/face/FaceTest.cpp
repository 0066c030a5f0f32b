#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "fixtures/WaitFor.h"
#include "standin/dock/model/ScrollGesture.h"
#include "standin/face/ShownDock.h"
#include "standin/face/WindowHistory.h"

namespace tarnwell::standin {
namespace {

using fixtures::waitFor;

constexpr int files = 0;
constexpr int notebook = 2;
constexpr int album = 4;

// Long enough for the next step of the wheel to be another movement.
constexpr std::chrono::milliseconds handAtRest(ScrollGesture::pause + 50);

std::string iconPlace(int application) {
  return std::to_string(ShownDock::iconColumn(application)) + " " + std::to_string(ShownDock::iconLine);
}

// Whether it is as far from what it should be as this may be: 20 milliseconds or 5 per cent, whichever is more.
bool isNear(ShownDock::Seconds found, double wanted) {
  return std::abs(found.count() - wanted) <= std::max(0.02, 0.05 * wanted);
}

// A machine that is busy with something else shows things late now and then, so that the middle one of several counts.
void expectReveal(const ShownDock& dock, double delay, double duration) {
  constexpr std::size_t tries = 5;
  std::vector<ShownDock::Seconds> delays;
  std::vector<ShownDock::Seconds> durations;
  while (delays.size() < tries) {
    dock.hide();
    const ShownDock::Reveal seen = dock.watchReveal();
    // It shows nothing early.
    ASSERT_GE(seen.delay.count(), delay - 0.02);
    delays.push_back(seen.delay);
    durations.push_back(seen.duration);
  }
  std::ranges::sort(delays);
  std::ranges::sort(durations);
  EXPECT_TRUE(isNear(delays[tries / 2], delay)) << "after " << delays[tries / 2].count() << " s";
  EXPECT_TRUE(isNear(durations[tries / 2], duration)) << "in " << durations[tries / 2].count() << " s";
}

TEST(FaceTest, comesAfterTheDelayInTheTimeThatIsSet) {
  ShownDock dock;
  dock.start();
  expectReveal(dock, 0.2, 0.5);
  dock.write("autohide-delay", "-float 0.6");
  dock.write("autohide-time-modifier", "-float 0.25");
  expectReveal(dock, 0.2, 0.5);
  dock.restart();
  expectReveal(dock, 0.6, 0.25);
  dock.write("autohide-delay", "-float 0");
  dock.write("autohide-time-modifier", "-float 1");
  dock.restart();
  expectReveal(dock, 0, 1);
  dock.write("autohide-delay", "-float 0.3");
  dock.write("autohide-time-modifier", "-float 0");
  dock.restart();
  expectReveal(dock, 0.3, 0);
}

TEST(FaceTest, movesInManySmallSteps) {
  ShownDock dock;
  dock.write("autohide-time-modifier", "-float 1");
  dock.start();
  int most = 0;
  // Of the sixty that there should be, a busy machine may drop some.
  for (int i = 0; i < 4 && most < 50; ++i) {
    dock.hide();
    most = std::max(most, dock.watchReveal().frames);
  }
  EXPECT_GE(most, 30);
}

TEST(FaceTest, theLastOfManyInARowHasTheLastValuesAndThereAreNeverTwo) {
  ShownDock dock;
  WindowHistory history(dock.display().name());
  dock.start();
  dock.write("autohide-delay", "-float 0.4");
  dock.restart(7);
  EXPECT_EQ(dock.starts(), 8U);
  // Some were ended before they could be seen.
  EXPECT_GE(history.count(), 2U);
  EXPECT_EQ(history.most(), 1U);
  expectReveal(dock, 0.4, 0.5);
}

// It takes a tenth of that where nothing else is to be done and nobody looks for faults at every step.
TEST(FaceTest, isSeenSoonAfterItsStart) {
  ShownDock dock;
  const auto begin = ShownDock::Clock::now();
  dock.start();
  const ShownDock::Seconds found = ShownDock::Clock::now() - begin;
  RecordProperty("seconds", std::to_string(found.count()));
  EXPECT_LT(found.count(), 1.5);
}

TEST(FaceTest, namesWhatThePointerIsOn) {
  ShownDock dock;
  const Display& display = dock.display();
  dock.start();
  dock.reveal();
  constexpr int labelLine = Display::height - 111;
  const auto isLabelled = [&](int application) {
    return display.color(ShownDock::iconColumn(application), labelLine) != 0;
  };
  EXPECT_FALSE(isLabelled(notebook));
  display.act("mousemove " + std::to_string(ShownDock::iconColumn(notebook)) + " " +
              std::to_string(ShownDock::iconLine));
  EXPECT_TRUE(waitFor([&] { return isLabelled(notebook); }));
  EXPECT_FALSE(isLabelled(album));
  display.act("mousemove " + std::to_string(ShownDock::iconColumn(album)) + " " + std::to_string(ShownDock::iconLine));
  EXPECT_TRUE(waitFor([&] { return isLabelled(album) && !isLabelled(notebook); }));
}

TEST(FaceTest, staysAboveWindowsThatComeLater) {
  ShownDock dock;
  dock.start();
  dock.reveal();
  const auto shelf = [&] { return dock.display().color(422, Display::height - 40); };
  constexpr std::uint32_t green = 0x00ff00;
  dock.display().openWindow(0, 600, Display::width, 200, green);
  const auto isCovered = [&] { return dock.display().color(20, Display::height - 40) == green; };
  EXPECT_TRUE(waitFor([&] { return isCovered() && shelf() != green; }));
}

TEST(FaceTest, leavesClicksAtTheLowerEdgeToTheWindowsThere) {
  ShownDock dock;
  dock.start();
  dock.display().openWindow(0, 700, Display::width, 100, 0);
  // The edge is above that window, or the dock would not come.
  dock.reveal();
  dock.hide();
  EXPECT_FALSE(dock.display().wasPressed());
  dock.display().act("mousemove 640 799 click 1");
  EXPECT_TRUE(waitFor([&] { return dock.display().wasPressed(); }));
  dock.reveal();
}

// Clicks the button that minimizes the document "Ideas", in slow motion, and waits for the picture at half the way.
Colors middleOf(const std::string& effect) {
  ShownDock dock;
  dock.write("mineffect", "-string " + effect);
  dock.start();
  dock.reveal();
  dock.click(notebook);
  EXPECT_TRUE(waitFor([&] { return dock.display().windowCount("Ideas") == 1; }));
  dock.display().act("mousemove 802 128 keydown Shift_L click 1 keyup Shift_L");
  const auto begin = ShownDock::Clock::now();
  EXPECT_TRUE(waitFor([&] { return dock.display().windowCount("Minimizing") == 1; }));
  std::this_thread::sleep_until(begin + std::chrono::milliseconds(1680));
  Colors middle = dock.display().colors(400, 0, Display::width - 400, Display::height - 90);
  EXPECT_TRUE(waitFor([&] { return dock.display().windowCount("Minimizing") == 0; }));
  EXPECT_EQ(dock.display().windowCount("Ideas"), 0);
  return middle;
}

TEST(FaceTest, everyEffectLooksUnlikeTheOthersAtItsMiddle) {
  const Colors genie = middleOf("genie");
  const Colors scale = middleOf("scale");
  const Colors suck = middleOf("suck");
  constexpr std::size_t clearly = 10'000;
  EXPECT_GT(differences(genie, scale), clearly);
  EXPECT_GT(differences(genie, suck), clearly);
  EXPECT_GT(differences(scale, suck), clearly);
}

TEST(FaceTest, aMinimizedWindowComesBackWhereItWas) {
  ShownDock dock;
  dock.start();
  dock.reveal();
  dock.click(notebook);
  const Display& display = dock.display();
  EXPECT_TRUE(waitFor([&] { return display.windowCount("Ideas") == 1; }));
  dock.hide();
  EXPECT_TRUE(waitFor([&] { return display.color(800, 350) != 0; }));
  display.act("mousemove 900 400");
  // Nothing of the other windows, which may be below it now.
  const auto picture = [&] { return display.colors(490, 120, 340, 230); };
  const Colors before = picture();
  display.act("mousemove 802 128 click 1");
  EXPECT_TRUE(waitFor([&] { return display.windowCount("Ideas") == 0 && display.windowCount("Minimizing") == 0; }));
  dock.reveal();
  // The picture of the window is the item before the last one, and the others have made room for it.
  display.act("mousemove 855 " + std::to_string(ShownDock::iconLine) + " click 1");
  EXPECT_TRUE(waitFor([&] { return display.windowCount("Ideas") == 1 && display.windowCount("Minimizing") == 0; }));
  dock.hide();
  display.act("mousemove 900 400");
  EXPECT_TRUE(waitFor([&] { return picture() == before; }));
}

// What the icon of the album looks like while the album is hidden and nobody points at it.
Colors hiddenIcon(const std::string& showHidden) {
  ShownDock dock;
  dock.write("showhidden", "-bool " + showHidden);
  // Long enough to look at a dock that the pointer has left.
  dock.write("autohide-time-modifier", "-float 0");
  dock.start();
  dock.reveal();
  dock.click(album);
  EXPECT_TRUE(waitFor([&] { return dock.display().windowCount("Mountains") == 1; }));
  dock.click(album, 3);
  dock.display().act("key Down Return");
  EXPECT_TRUE(waitFor([&] { return dock.display().windowCount("Mountains") == 0; }));
  dock.hide();
  dock.reveal();
  // The edge is away from the icons, which are at rest then.
  return dock.display().colors(ShownDock::iconColumn(album) - 20, ShownDock::iconLine - 20, 40, 40);
}

TEST(FaceTest, theIconOfAHiddenApplicationIsDimmedWhereThatIsSet) {
  const Colors plain = hiddenIcon("false");
  const Colors dimmed = hiddenIcon("true");
  EXPECT_GT(differences(plain, dimmed), plain.size() / 2);
}

TEST(FaceTest, onlyRunningApplicationsAreThereWhereThatIsSet) {
  ShownDock dock;
  dock.write("autohide-time-modifier", "-float 0");
  dock.start();
  dock.reveal();
  EXPECT_NE(dock.display().color(ShownDock::iconColumn(files), ShownDock::iconLine), 0U);
  dock.write("static-only", "-bool true");
  dock.hide();
  ::kill(dock.process(), SIGTERM);
  dock.display().act("mousemove 640 799");
  // Three applications and the trash are half as wide as eight and the trash.
  EXPECT_TRUE(waitFor([&] { return dock.display().color(640, ShownDock::iconLine) != 0; }));
  EXPECT_EQ(dock.display().color(ShownDock::iconColumn(files), ShownDock::iconLine), 0U);
}

TEST(FaceTest, aClickHidesTheOthersWhereThatIsSet) {
  for (const bool isSet : {false, true}) {
    ShownDock dock;
    dock.write("single-app", isSet ? "-bool true" : "-bool false");
    dock.start();
    dock.reveal();
    dock.click(notebook);
    EXPECT_TRUE(waitFor([&] { return dock.display().windowCount("Ideas") == 1; }));
    dock.click(album);
    EXPECT_TRUE(waitFor([&] { return dock.display().windowCount("Mountains") == 1; }));
    EXPECT_TRUE(waitFor([&] { return dock.display().windowCount("Ideas") == (isSet ? 0 : 1); })) << isSet;
  }
}

TEST(FaceTest, scrollingUpSpreadsTheWindowsOutWhereThatIsSet) {
  ShownDock dock;
  const Display& display = dock.display();
  dock.start();
  dock.reveal();
  dock.click(notebook);
  EXPECT_TRUE(waitFor([&] { return display.windowCount("Ideas") == 1; }));
  dock.click(notebook, 4);
  dock.write("scroll-to-open", "-bool true");
  dock.restart();
  EXPECT_EQ(display.windowCount("Windows"), 0);
  // The windows are where they were: applications outlive the dock.
  EXPECT_TRUE(waitFor([&] { return display.windowCount("Ideas") == 1; }));
  dock.reveal();
  // A long movement of the hand, which opens and does not close.
  display.act("mousemove " + iconPlace(notebook) + " click --repeat 12 --delay 50 4");
  EXPECT_TRUE(waitFor([&] { return display.windowCount("Windows") == 1; }));
  EXPECT_FALSE(waitFor([&] { return display.windowCount("Windows") == 0; }, handAtRest));
  dock.click(notebook, 4);
  EXPECT_TRUE(waitFor([&] { return display.windowCount("Windows") == 0; }));
}

TEST(FaceTest, escapeEndsTheSpreadAndTheDockHidesAfterItHoweverOftenItWasOpened) {
  ShownDock dock;
  const Display& display = dock.display();
  dock.write("scroll-to-open", "-bool true");
  dock.start();
  dock.reveal();
  dock.click(notebook, 4);
  EXPECT_TRUE(waitFor([&] { return display.windowCount("Windows") == 1; }));
  EXPECT_FALSE(waitFor([&] { return display.windowCount("Windows") == 0; }, handAtRest));
  // The dock is above it, and can be used.
  EXPECT_NE(display.color(422, ShownDock::iconLine), display.color(20, ShownDock::iconLine));
  // The second scroll comes while the spread is still closing.
  display.act("mousemove " + iconPlace(notebook) + " key Escape click 4");
  EXPECT_FALSE(waitFor([&] { return display.windowCount("Windows") == 0; }, handAtRest));
  display.act("key Escape");
  EXPECT_TRUE(waitFor([&] { return display.windowCount("Windows") == 0; }));
  dock.hide();
}

TEST(FaceTest, anApplicationThatIsHiddenOnTheWayOutOfTheDockLeavesNothingBehind) {
  ShownDock dock;
  const Display& display = dock.display();
  dock.start();
  dock.reveal();
  dock.click(notebook);
  EXPECT_TRUE(waitFor([&] { return display.windowCount("Ideas") == 1; }));
  display.act("mousemove 802 128 click 1");
  EXPECT_TRUE(waitFor([&] { return display.windowCount("Ideas") == 0 && display.windowCount("Minimizing") == 0; }));
  dock.reveal();
  display.act("mousemove 855 " + std::to_string(ShownDock::iconLine) + " keydown Shift_L click 1 keyup Shift_L");
  EXPECT_TRUE(waitFor([&] { return display.windowCount("Minimizing") == 1; }));
  dock.click(notebook, 3);
  display.act("key Down Return");
  EXPECT_TRUE(waitFor([&] { return display.windowCount("Shopping") == 0; }));
  EXPECT_EQ(display.windowCount("Minimizing"), 1);
  EXPECT_TRUE(waitFor([&] { return display.windowCount("Minimizing") == 0; }));
  EXPECT_EQ(display.windowCount("Ideas"), 0);
}

// The processor time of all threads, in clock ticks, and how often one of them went to sleep.
std::pair<long, long> effort(pid_t process) {
  std::pair<long, long> sum;
  for (const auto& thread : std::filesystem::directory_iterator("/proc/" + std::to_string(process) + "/task")) {
    std::ifstream status(thread.path() / "status");
    for (std::string word; status >> word;) {
      long count = 0;
      if (word == "voluntary_ctxt_switches:" && status >> count) {
        sum.second += count;
      }
    }
    const std::string stat = fileContent((thread.path() / "stat").string());
    std::istringstream fields(stat.substr(stat.rfind(')') + 2));
    std::vector<std::string> words{std::istream_iterator<std::string>(fields), {}};
    sum.first += std::stol(words[11]) + std::stol(words[12]);
  }
  return sum;
}

TEST(FaceTest, sleepsWhenNothingMoves) {
  ShownDock dock;
  dock.start();
  dock.hide();
  for (const char* state : {"hidden", "shown"}) {
    // It may still have something to finish.
    std::pair<long, long> before = effort(dock.process());
    EXPECT_TRUE(waitFor([&] {
      std::this_thread::sleep_for(std::chrono::seconds(1));
      const auto now = effort(dock.process());
      return std::exchange(before, now) == now;
    })) << state;
    std::this_thread::sleep_for(std::chrono::seconds(1));
    EXPECT_EQ(effort(dock.process()), before) << state;
    dock.reveal();
  }
}

TEST(FaceTest, livesInAWindowThatSaysSoWhereProgramsDoNotPlaceWindows) {
  const MacSystem system;
  const Display display;
  Words environment = system.environment();
  environment.insert(environment.end(), {"DISPLAY=" + display.name(), "WAYLAND_DISPLAY=none", "QT_QPA_PLATFORM=xcb"});
  display.act("mousemove 1270 790");
  const Process dock({DOCK_PATH}, environment);
  EXPECT_TRUE(waitFor([&] { return display.windowCount("Dock") == 1; }));
  const auto isLit = [&](int x, int y) { return display.color(x, y) != 0; };
  EXPECT_TRUE(waitFor([&] { return isLit(500, 20); }));
  EXPECT_FALSE(isLit(1100, 700));
}

// The greatest step of brightness from one pixel of a line to the next.
int steepest(const Colors& line) {
  int found = 0;
  for (std::size_t i = 1; i < line.size(); ++i) {
    found = std::max(found, std::abs(static_cast<int>(line[i] & 0xffU) - static_cast<int>(line[i - 1] & 0xffU)));
  }
  return found;
}

// A picture that was made larger has slopes where there were steps.
TEST(FaceTest, isAsSharpOnAScreenOfMorePixelsAPoint) {
  int sharpness = 0;
  for (const double scale : {1.0, 1.5, 2.0}) {
    const MacSystem system;
    const Display display;
    Words environment = system.environment();
    environment.insert(environment.end(), {"DISPLAY=" + display.name(), "QT_SCALE_FACTOR=" + std::to_string(scale)});
    display.act("mousemove 640 100");
    const Process dock({DOCK_PATH}, environment);
    // Through the middle of the icons.
    const int line = Display::height - static_cast<int>(std::lround(42 * scale));
    EXPECT_TRUE(waitFor([&] { return steepest(display.colors(0, line, Display::width, 1)) > 0; }));
    const int found = steepest(display.colors(0, line, Display::width, 1));
    sharpness = std::max(sharpness, found);
    EXPECT_GE(found, sharpness * 8 / 10) << scale;
  }
}

TEST(FaceTest, livesOnWithoutAFaceOnAPlatformThatCannotBeStarted) {
  const MacSystem system;
  const Display display;
  Words environment = system.environment();
  environment.insert(environment.end(), {"DISPLAY=" + display.name(), "QT_QPA_PLATFORM=nowhere"});
  const Process supervisor({SUPERVISOR_PATH}, environment);
  EXPECT_TRUE(waitFor([&] { return supervisor.errors().find("nowhere") != std::string::npos; }));
  // One line in the log: it was not started again.
  const auto starts = [&] { return std::ranges::count(fileContent(system.dockLog()), '\n'); };
  EXPECT_FALSE(waitFor([&] { return starts() > 1; }, std::chrono::milliseconds(500)));
}

TEST(FaceTest, showsNothingWithoutAWindowOrADisplay) {
  const MacSystem system;
  const Display display;
  Words environment = system.environment();
  environment.push_back("DISPLAY=" + display.name());
  const Process quiet({DOCK_PATH, "--no-window"}, environment);
  EXPECT_TRUE(waitFor([&] { return !fileContent(system.dockLog()).empty(); }));
  EXPECT_FALSE(waitFor([&] { return display.windowCount("Dock") > 0; }, std::chrono::milliseconds(500)));
  EXPECT_TRUE(isRunning(quiet.id()));
  std::filesystem::remove(system.dockLog());
  environment.back() = "DISPLAY=:64999";
  const Process lost({DOCK_PATH}, environment);
  EXPECT_TRUE(waitFor([&] { return !fileContent(system.dockLog()).empty(); }));
  EXPECT_FALSE(waitFor([&] { return !isRunning(lost.id()); }, std::chrono::milliseconds(500)));
}

}  // namespace
}  // namespace tarnwell::standin
