#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <map>
#include <string>
#include <thread>
#include <utility>

#include "fixtures/WaitFor.h"
#include "standin/dock/ui/ShownDock.h"

namespace tarnwell::standin {
namespace {

using fixtures::waitFor;

// Clicks the button that minimizes the document "Ideas", in slow motion. Of all that is seen on the way, the picture
// that was seen at half of it.
Colors middleOf(const std::string& effect) {
  ShownDock dock;
  dock.write("mineffect", "-string " + effect);
  dock.start();
  dock.reveal();
  dock.openNotebook();
  dock.display().act("mousemove 802 128 keydown Shift_L click 1 keyup Shift_L");
  EXPECT_TRUE(waitFor([&] { return dock.display().windowCount("Minimizing") == 1; }));
  // Looking all the time would take from the dock the time that it needs.
  constexpr std::chrono::milliseconds betweenLooks{20};
  std::map<ShownDock::Clock::time_point, Colors> seen;
  do {
    std::this_thread::sleep_for(betweenLooks);
    Colors colors = dock.display().colors(400, 0, Display::width - 400, Display::height - 90);
    seen.emplace(ShownDock::Clock::now(), std::move(colors));
  } while (dock.display().windowCount("Minimizing") == 1);
  EXPECT_EQ(dock.display().windowCount("Ideas"), 0);
  const auto begin = seen.begin()->first;
  return seen.lower_bound(begin + (seen.rbegin()->first - begin) / 2)->second;
}

TEST(EffectTest, everyEffectLooksUnlikeTheOthersAtItsMiddle) {
  const Colors genie = middleOf("genie");
  const Colors scale = middleOf("scale");
  const Colors suck = middleOf("suck");
  constexpr std::size_t clearly = 10'000;
  EXPECT_GT(differences(genie, scale), clearly);
  EXPECT_GT(differences(genie, suck), clearly);
  EXPECT_GT(differences(scale, suck), clearly);
}

TEST(EffectTest, nothingUnpaintedShowsAtItsEdgesWherePointsAreNoWholePixels) {
  const MacSystem system;
  Display display;
  constexpr std::uint32_t green = 0x00ff00;
  display.openWindow(0, 0, Display::width, Display::height, green);
  Words environment = system.environment();
  environment.insert(environment.end(), {"DISPLAY=" + display.name(), "QT_SCALE_FACTOR=1.5"});
  display.act("mousemove 640 799");
  const Process dock({DOCK_PATH}, environment);
  EXPECT_TRUE(waitFor([&] { return display.windowCount("Dock") == 1; }));
  // The same places as elsewhere, in pixels.
  display.act("mousemove 448 737");
  EXPECT_TRUE(waitFor([&] { return display.color(448, 737) != green; }));
  display.act("click 1");
  EXPECT_TRUE(waitFor([&] { return display.windowCount("Ideas") == 1; }));
  EXPECT_TRUE(waitFor([&] { return display.color(1000, 192) != green; }));
  display.act("mousemove 1191 192 keydown Shift_L click 1 keyup Shift_L");
  EXPECT_TRUE(waitFor([&] { return display.windowCount("Minimizing") == 1; }));
  constexpr std::uint32_t unpainted = 0;
  do {
    ASSERT_EQ(std::ranges::count(display.colors(0, 0, Display::width, 650), unpainted), 0);
  } while (display.windowCount("Minimizing") == 1);
}

TEST(EffectTest, aMinimizedWindowComesBackWhereItWas) {
  ShownDock dock;
  dock.start();
  dock.reveal();
  dock.openNotebook();
  const Display& display = dock.display();
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

TEST(EffectTest, anApplicationThatIsHiddenOnTheWayOutOfTheDockLeavesNothingBehind) {
  ShownDock dock;
  const Display& display = dock.display();
  dock.start();
  dock.reveal();
  dock.openNotebook();
  display.act("mousemove 802 128 click 1");
  EXPECT_TRUE(waitFor([&] { return display.windowCount("Ideas") == 0 && display.windowCount("Minimizing") == 0; }));
  dock.reveal();
  display.act("mousemove 855 " + std::to_string(ShownDock::iconLine) + " keydown Shift_L click 1 keyup Shift_L");
  EXPECT_TRUE(waitFor([&] { return display.windowCount("Minimizing") == 1; }));
  dock.click(ShownDock::notebook, 3);
  display.act("key Down Return");
  EXPECT_TRUE(waitFor([&] { return display.windowCount("Shopping") == 0; }));
  EXPECT_EQ(display.windowCount("Minimizing"), 1);
  EXPECT_TRUE(waitFor([&] { return display.windowCount("Minimizing") == 0; }));
  EXPECT_EQ(display.windowCount("Ideas"), 0);
}

}  // namespace
}  // namespace tarnwell::standin
