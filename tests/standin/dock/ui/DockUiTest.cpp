#include <gtest/gtest.h>

#include <algorithm>
#include <array>
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
#include "standin/dock/ui/ShownDock.h"
#include "standin/dock/ui/WindowHistory.h"

namespace tarnwell::standin {
namespace {

using fixtures::waitFor;

// Whether it is as far from what it should be as this may be: 20 milliseconds or 5 per cent, whichever is more.
bool isNear(ShownDock::Seconds found, double wanted) {
  return std::abs(found.count() - wanted) <= std::max(0.02, 0.05 * wanted);
}

// A machine that is busy with something else shows things late now and then, so that it has several chances; it shows
// nothing early.
void expectReveal(const ShownDock& dock, double delay, double duration) {
  constexpr int chances = 8;
  std::string seen;
  for (int i = 0; i < chances; ++i) {
    dock.hide();
    const ShownDock::Reveal reveal = dock.watchReveal();
    EXPECT_GE(reveal.delay.count(), delay - 0.02);
    if (isNear(reveal.delay, delay) && isNear(reveal.duration, duration)) {
      return;
    }
    seen +=
        " after " + std::to_string(reveal.delay.count()) + " s in " + std::to_string(reveal.duration.count()) + " s";
  }
  ADD_FAILURE() << "comes" << seen << " and not after " << delay << " s in " << duration << " s";
}

TEST(DockUiTest, comesAfterTheDelayInTheTimeThatIsSet) {
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

TEST(DockUiTest, movesInManySmallSteps) {
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

TEST(DockUiTest, theLastOfManyInARowHasTheLastValuesAndThereAreNeverTwo) {
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

// It takes a tenth of that where nothing else is to be done and no sanitizer is at work.
TEST(DockUiTest, isSeenSoonAfterItsStart) {
  ShownDock dock;
  const auto begin = ShownDock::Clock::now();
  dock.start();
  const ShownDock::Seconds found = ShownDock::Clock::now() - begin;
  RecordProperty("seconds", std::to_string(found.count()));
  EXPECT_LT(found.count(), 1.5);
}

TEST(DockUiTest, namesWhatThePointerIsOn) {
  ShownDock dock;
  const Display& display = dock.display();
  dock.start();
  dock.reveal();
  constexpr int labelLine = Display::height - 111;
  const auto isLabelled = [&](int application) {
    return display.color(ShownDock::iconColumn(application), labelLine) != 0;
  };
  EXPECT_FALSE(isLabelled(ShownDock::notebook));
  display.act("mousemove " + std::to_string(ShownDock::iconColumn(ShownDock::notebook)) + " " +
              std::to_string(ShownDock::iconLine));
  EXPECT_TRUE(waitFor([&] { return isLabelled(ShownDock::notebook); }));
  EXPECT_FALSE(isLabelled(ShownDock::album));
  display.act("mousemove " + std::to_string(ShownDock::iconColumn(ShownDock::album)) + " " +
              std::to_string(ShownDock::iconLine));
  EXPECT_TRUE(waitFor([&] { return isLabelled(ShownDock::album) && !isLabelled(ShownDock::notebook); }));
}

TEST(DockUiTest, staysAboveWindowsThatComeLater) {
  ShownDock dock;
  dock.start();
  dock.reveal();
  const auto shelf = [&] { return dock.display().color(422, Display::height - 40); };
  constexpr std::uint32_t green = 0x00ff00;
  dock.display().openWindow(0, 600, Display::width, 200, green);
  const auto isCovered = [&] { return dock.display().color(20, Display::height - 40) == green; };
  EXPECT_TRUE(waitFor([&] { return isCovered() && shelf() != green; }));
}

TEST(DockUiTest, staysAboveWindowsThatAreRaised) {
  ShownDock dock;
  Display& display = dock.display();
  constexpr std::uint32_t green = 0x00ff00;
  constexpr std::uint32_t blue = 0x0000ff;
  constexpr int line = Display::height - 40;
  dock.start();
  dock.reveal();
  const xcb_window_t window = display.openWindow(0, 600, Display::width, 200, green);
  const auto isShelfCovered = [&] { return display.color(422, line) == green; };
  for (int i = 0; i < 2; ++i) {
    EXPECT_TRUE(waitFor([&] { return display.color(20, line) == green && !isShelfCovered(); }));
    display.raise(window);
    EXPECT_TRUE(waitFor([&] { return !isShelfCovered(); }));
    // The other time with a menu between them, which is above the dock as well.
    display.openMenu(0, 0, 10, 10, blue);
    EXPECT_TRUE(waitFor([&] { return display.color(5, 5) == blue; }));
  }
  // Hidden, it finds its way through them.
  display.act("mousemove 640 300");
  EXPECT_TRUE(waitFor([&] { return display.windowCount("Dock") == 0; }));
  display.raise(window);
  display.act("mousemove 640 799");
  EXPECT_TRUE(waitFor([&] { return display.windowCount("Dock") == 1 && !isShelfCovered(); }));
}

TEST(DockUiTest, doesNotTakeTheKeyboard) {
  ShownDock dock;
  Display& display = dock.display();
  const xcb_window_t window = display.openWindow(0, 0, 200, 200, 0x00ff00);
  EXPECT_TRUE(waitFor([&] { return display.color(100, 100) == 0x00ff00; }));
  display.focus(window);
  ASSERT_EQ(display.focused(), window);
  dock.start();
  EXPECT_EQ(display.focused(), window);
  dock.hide();
  dock.reveal();
  display.act("mousemove " + std::to_string(ShownDock::iconColumn(ShownDock::notebook)) + " " +
              std::to_string(ShownDock::iconLine));
  constexpr int labelLine = Display::height - 111;
  EXPECT_TRUE(waitFor([&] { return display.color(ShownDock::iconColumn(ShownDock::notebook), labelLine) != 0; }));
  EXPECT_EQ(display.focused(), window);
  constexpr int trash = 889;
  display.act("mousemove " + std::to_string(trash) + " " + std::to_string(ShownDock::iconLine) + " click 1");
  dock.hide();
  EXPECT_EQ(display.focused(), window);
}

TEST(DockUiTest, leavesClicksAtTheLowerEdgeToTheWindowsThere) {
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

TEST(DockUiTest, isStartedAgainWhenItsEdgeIsTakenAway) {
  ShownDock dock;
  dock.start();
  const pid_t before = dock.process();
  dock.display().disconnectOwnerOfEdge();
  EXPECT_TRUE(waitFor([&] { return dock.process() != before; }));
  dock.hide();
  dock.reveal();
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

TEST(DockUiTest, sleepsWhenNothingMoves) {
  ShownDock dock;
  dock.start();
  dock.hide();
  for (const char* state : {"hidden", "shown"}) {
    // It may still have something to finish.
    std::pair<long, long> before = effort(dock.ui());
    EXPECT_TRUE(waitFor([&] {
      std::this_thread::sleep_for(std::chrono::seconds(1));
      const auto now = effort(dock.ui());
      return std::exchange(before, now) == now;
    })) << state;
    std::this_thread::sleep_for(std::chrono::seconds(1));
    EXPECT_EQ(effort(dock.ui()), before) << state;
    dock.reveal();
  }
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
TEST(DockUiTest, isAsSharpOnAScreenOfMorePixelsAPoint) {
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

TEST(DockUiTest, comesBackOnScreensWhosePixelsMakeNoWholeNumberOfPoints) {
  constexpr std::array<std::pair<int, int>, 3> sizes = {{{1366, 768}, {1920, 1080}, {1280, 1024}}};
  for (const auto& [wide, high] : sizes) {
    const MacSystem system;
    const Display display(wide, high);
    Words environment = system.environment();
    environment.insert(environment.end(), {"DISPLAY=" + display.name(), "QT_SCALE_FACTOR=1.5"});
    display.act("mousemove 640 100");
    const Process dock({DOCK_PATH}, environment);
    const auto isShown = [&] { return display.windowCount("Dock") == 1; };
    EXPECT_TRUE(waitFor(isShown));
    EXPECT_TRUE(waitFor([&] { return !isShown(); }));
    display.act("mousemove 640 " + std::to_string(high - 1));
    EXPECT_TRUE(waitFor(isShown)) << high;
  }
}

TEST(DockUiTest, asksCompositorsForNoShadow) {
  ShownDock dock;
  const Display& display = dock.display();
  dock.start();
  const std::uint32_t typeDock = display.atom("_NET_WM_WINDOW_TYPE_DOCK");
  for (const char* window : {"Dock", "Windows", "Minimizing"}) {
    const std::vector<std::uint32_t> kinds = display.property(window, "_NET_WM_WINDOW_TYPE");
    EXPECT_TRUE(!kinds.empty() && kinds.front() == typeDock) << window;
    EXPECT_EQ(display.property(window, "_COMPTON_SHADOW"), std::vector<std::uint32_t>(1)) << window;
    EXPECT_EQ(display.property(window, "_GTK_FRAME_EXTENTS"), std::vector<std::uint32_t>(4)) << window;
  }
}

TEST(DockUiTest, staysWhileDocksComeAndGo) {
  ShownDock dock;
  dock.start();
  const pid_t ui = dock.ui();
  ASSERT_GT(ui, 0);
  const pid_t before = dock.process();
  dock.restart(3);
  EXPECT_NE(dock.process(), before);
  EXPECT_EQ(dock.ui(), ui);
}

TEST(DockUiTest, anotherOneComesInThePlaceOfOneThatWasKilled) {
  ShownDock dock;
  dock.start();
  const pid_t ui = dock.ui();
  const std::size_t starts = dock.starts();
  ::kill(ui, SIGKILL);
  EXPECT_TRUE(waitFor([&] { return dock.starts() > starts && dock.ui() > 0 && dock.ui() != ui; }));
  dock.hide();
  dock.reveal();
}

TEST(DockUiTest, endsWithTheLastProcessThatTellsOfADock) {
  for (const char* path : {DOCK_PATH, SUPERVISOR_PATH}) {
    const MacSystem system;
    const Display display;
    Words environment = system.environment();
    environment.push_back("DISPLAY=" + display.name());
    Process process({path}, environment);
    EXPECT_TRUE(waitFor([&] { return display.windowCount("Dock") == 1; })) << path;
    process.send(SIGKILL);
    process.wait();
    EXPECT_TRUE(waitFor([&] { return display.windowCount("Dock") == 0; })) << path;
  }
}

TEST(DockUiTest, livesOnWithoutAUiOnAPlatformThatCannotBeStarted) {
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

TEST(DockUiTest, showsNothingWithoutAWindowOrADisplay) {
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

TEST(DockUiTest, refusesARootThatIsNotUtf8) {
  const Outcome outcome = run({FACE_PATH}, {"MACOS_ROOT=/tmp/\xff", "PATH=/usr/bin:/bin"});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_NE(outcome.errors.find("MACOS_ROOT is not UTF-8"), std::string::npos) << outcome.errors;
}

}  // namespace
}  // namespace tarnwell::standin
