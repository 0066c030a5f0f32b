#include "kit/application/WindowList.h"

#include <gtest/gtest.h>

#include "kit/control/Window.h"

namespace tarnwell::kit {
namespace {

class WindowListTest : public testing::Test {
 protected:
  WindowList windows;
};

TEST_F(WindowListTest, onlyTheHostSaysWhichWindowHasTheKeys) {
  Window first("first", "");
  Window second("second", "");
  windows.add(first);
  windows.add(second);
  EXPECT_EQ(windows.all(), (std::vector<Window*>{&first, &second}));
  EXPECT_EQ(windows.keyWindow(), nullptr);
  windows.setKeyWindow(&first);
  windows.remove(second);
  EXPECT_EQ(windows.keyWindow(), &first);
  windows.add(second);
  windows.remove(first);
  EXPECT_EQ(windows.keyWindow(), nullptr);
}

TEST_F(WindowListTest, aPanelThatGoesHasTheKeysNoLongerAndIsNoChangeOfTheList) {
  Window panel("panel", "", Window::Kind::panel);
  int changes = 0;
  const auto subscription = windows.observe([&](const WindowList& /*told*/) { ++changes; });
  windows.setKeyWindow(&panel);
  windows.remove(panel);
  EXPECT_EQ(windows.keyWindow(), nullptr);
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
