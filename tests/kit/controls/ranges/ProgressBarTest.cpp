#include "kit/controls/ranges/ProgressBar.h"

#include <gtest/gtest.h>

#include <limits>

#include "kit/ShownControl.h"

namespace tarnwell::kit {
namespace {

TEST(ProgressBarTest, aShareTellsThePeerOnceAndIsHeldToItsRange) {
  ShownControl<ProgressBar> bar;
  EXPECT_EQ(bar->share(), std::nullopt);
  bar->setShare(0.5);
  bar->setShare(0.5);
  EXPECT_EQ(bar.told(), Lines{"progress bar: value"});
  bar->setShare(7);
  EXPECT_EQ(bar->share(), 1);
  bar->setShare(-1);
  EXPECT_EQ(bar->share(), 0);
  bar->setShare(std::numeric_limits<double>::quiet_NaN());
  EXPECT_EQ(bar->share(), std::nullopt);
}

TEST(ProgressBarTest, anUnknownShareIsNoValue) {
  ShownControl<ProgressBar> bar;
  EXPECT_EQ(bar->accessible().value, AccessibleValue());
  EXPECT_EQ(bar->accessible().range, std::nullopt);
  bar->setShare(0.25);
  EXPECT_EQ(bar->accessible().value, AccessibleValue(0.25));
}

TEST(ProgressBarTest, itsPlaceIsNotReachedWithTheKeyboard) { EXPECT_FALSE(ProgressBar().takesFocus()); }

}  // namespace
}  // namespace tarnwell::kit
