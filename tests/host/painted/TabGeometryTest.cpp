#include "host/painted/TabGeometry.h"

#include <gtest/gtest.h>

#include "kit/Printing.h"
#include "kit/controls/choices/TabBar.h"

namespace tarnwell::host_painted {
namespace {

TEST(TabGeometryTest, tabsStandSideBySideInTheMiddle) {
  kit::TabBar bar;
  bar.setItems({{.title = "Dock"}, {.title = "General"}});
  bar.setFrame({.x = 30, .y = 20, .width = 600, .height = 60});
  EXPECT_EQ(rectOfTab(bar, 0), (kit::Rect{228, 6, 72, 48}));
  EXPECT_EQ(rectOfTab(bar, 1), (kit::Rect{300, 6, 72, 48}));
}

TEST(TabGeometryTest, tabsOfAHigherBarAreWiderInProportion) {
  kit::TabBar bar;
  bar.setItems({{.title = "Dock"}});
  bar.setFrame({.width = 200, .height = 2 * 48 + 12});
  EXPECT_EQ(rectOfTab(bar, 0), (kit::Rect{28, 6, 144, 96}));
}

}  // namespace
}  // namespace tarnwell::host_painted
