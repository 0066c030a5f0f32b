#include "kit/controls/containers/Box.h"

#include <gtest/gtest.h>

#include "kit/ShownControl.h"

namespace tarnwell::kit {
namespace {

TEST(BoxTest, itTakesWhatItIsOffered) {
  ShownControl<Box> box(Box::Kind::separator);
  EXPECT_EQ(box->kind(), Box::Kind::separator);
  EXPECT_EQ(box->measure({.width = 70, .height = 1}).size, (Size{.width = 70, .height = 1}));
  EXPECT_EQ(box->measure({}).size, Size{});
}

}  // namespace
}  // namespace tarnwell::kit
