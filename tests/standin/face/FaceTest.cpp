#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
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
#include "standin/face/ShownDock.h"

namespace tarnwell::standin {
namespace {

using fixtures::waitFor;

constexpr int files = 0;
constexpr int notebook = 2;
constexpr int album = 4;

// Whether it is as far from what it should be as this may be: 20 milliseconds or 5 per cent, whichever is more.
bool isNear(ShownDock::Seconds found, double wanted) {
  return std::abs(found.count() - wanted) <= std::max(0.02, 0.05 * wanted);
}

// A machine that is busy with something else shows things late, so that one good try of several is enough. It shows
// nothing early.
void expectReveal(const ShownDock& dock, double delay, double duration) {
  constexpr int tries = 12;
  ShownDock::Reveal seen;
  for (int i = 0; i < tries; ++i) {
    dock.hide();
    seen = dock.watchReveal();
    ASSERT_GE(seen.delay.count(), delay - 0.02);
    if (isNear(seen.delay, delay) && isNear(seen.duration, duration)) {
      return;
    }
  }
  FAIL() << "after " << seen.delay.count() << " s, in " << seen.duration.count() << " s and " << seen.frames
         << " pictures";
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
  dock.start();
  std::atomic<bool> isOver = false;
  int most = 0;
  std::thread watcher([&] {
    while (!isOver) {
      most = std::max(most, dock.display().windowCount("Dock"));
    }
  });
  dock.write("autohide-delay", "-float 0.4");
  dock.restart(7);
  isOver = true;
  watcher.join();
  EXPECT_EQ(most, 1);
  EXPECT_EQ(dock.starts(), 8U);
  expectReveal(dock, 0.4, 0.5);
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
  dock.click(notebook, 4);
  EXPECT_TRUE(waitFor([&] { return display.windowCount("Windows") == 1; }));
  display.act("key Escape");
  EXPECT_TRUE(waitFor([&] { return display.windowCount("Windows") == 0; }));
  // What follows too soon belongs to the same movement of the hand.
  constexpr std::chrono::milliseconds pause{300};
  std::this_thread::sleep_for(pause);
  dock.click(notebook, 4);
  EXPECT_TRUE(waitFor([&] { return display.windowCount("Windows") == 1; }));
  std::this_thread::sleep_for(pause);
  dock.click(notebook, 4);
  EXPECT_TRUE(waitFor([&] { return display.windowCount("Windows") == 0; }));
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
