#include "kit/controls/choices/TabBar.h"

#include <gtest/gtest.h>

namespace tarnwell::kit {
namespace {

TEST(TabBarTest, theFirstTabFollowsTheLast) {
  std::vector<int> chosen;
  TabBar bar;
  bar.setItems({{.title = "One"}, {.title = "Two"}, {.title = "Three"}});
  bar.setSelectedIndex(0);
  bar.setAction([&chosen](int index) { chosen.push_back(index); });
  for (const int distance : {1, 1, 1, -1, -2, -4}) {
    bar.chooseBeside(distance);
  }
  EXPECT_EQ(chosen, (std::vector<int>{1, 2, 0, 2, 0, 2}));
}

TEST(TabBarTest, fewerTabsNeverLeaveAnIndexBehindTheLast) {
  TabBar bar;
  bar.setItems({{.title = "One"}, {.title = "Two"}});
  bar.setSelectedIndex(1);
  bar.setItems({{.title = "One"}});
  EXPECT_EQ(bar.selectedIndex(), 0);
}

TEST(TabBarTest, withoutTabsThereIsNoNext) {
  TabBar bar;
  bar.setAction([](int) { FAIL() << "a tab was chosen"; });
  bar.chooseBeside(1);
  EXPECT_EQ(bar.selectedIndex(), -1);
}

}  // namespace
}  // namespace tarnwell::kit
