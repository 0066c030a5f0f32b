#include "kit/application/WindowList.h"

#include <gtest/gtest.h>

#include "kit/controls/Window.h"

namespace tarnwell::kit {
namespace {

class WindowListTest : public testing::Test {
 protected:
  WindowList windows;
};

TEST_F(WindowListTest, theNewestWindowHasTheKeys) {
  Window first("first", "");
  Window second("second", "");
  EXPECT_EQ(windows.keyWindow(), nullptr);
  windows.add(first);
  windows.add(second);
  EXPECT_EQ(windows.all(), (std::vector<Window*>{&first, &second}));
  EXPECT_EQ(windows.keyWindow(), &second);
  windows.setKeyWindow(&first);
  windows.remove(first);
  EXPECT_EQ(windows.keyWindow(), &second);
  windows.remove(second);
  EXPECT_EQ(windows.keyWindow(), nullptr);
}

TEST_F(WindowListTest, aWindowThatDoesNotTakeTheKeyboardLeavesTheKeysWhereTheyAre) {
  Window first("first", "");
  Window quiet("quiet", "");
  quiet.setTakesKeyboard(false);
  windows.add(first);
  windows.add(quiet);
  EXPECT_EQ(windows.all(), (std::vector<Window*>{&first, &quiet}));
  EXPECT_EQ(windows.keyWindow(), &first);
  windows.setKeyWindow(&quiet);
  EXPECT_EQ(windows.keyWindow(), &quiet);
}

TEST_F(WindowListTest, aPanelThatGoesHandsTheKeysBackAndIsNoChangeOfTheList) {
  Window window("window", "");
  Window panel("panel", "", Window::Kind::panel);
  windows.add(window);
  int changes = 0;
  const auto subscription = windows.observe([&](const WindowList& /*told*/) { ++changes; });
  windows.setKeyWindow(&panel);
  windows.remove(panel);
  EXPECT_EQ(windows.keyWindow(), &window);
  EXPECT_EQ(changes, 0);
}

TEST_F(WindowListTest, observersHearOfEachChangeOfTheWindows) {
  Window window("", "");
  std::vector<std::size_t> counts;
  auto subscription = windows.observe([&](const WindowList& told) { counts.push_back(told.all().size()); });
  windows.add(window);
  windows.add(window);
  windows.remove(window);
  windows.remove(window);
  EXPECT_EQ(counts, (std::vector<std::size_t>{1, 0}));
  subscription.invalidate();
  windows.add(window);
  EXPECT_EQ(counts.size(), 2U);
}

}  // namespace
}  // namespace tarnwell::kit
