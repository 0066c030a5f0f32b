#include "view/values/Same.h"

#include <gtest/gtest.h>

#include <functional>
#include <limits>
#include <string>

namespace tarnwell::view {
namespace {

TEST(SameTest, equalityIsReflexive) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  EXPECT_TRUE(same(nan, nan));
  EXPECT_TRUE(same(nan, -nan));
  EXPECT_FALSE(same(nan, 0.0));
  EXPECT_FALSE(same(0.0, nan));
  EXPECT_TRUE(same(0.1 + 0.2, 0.30000000000000004));
  EXPECT_FALSE(same(0.1 + 0.2, 0.3));
  EXPECT_TRUE(same(0.0, -0.0));
  EXPECT_TRUE(same(std::string("a"), std::string("a")));
  EXPECT_FALSE(same(std::string("a"), std::string("b")));
}

TEST(SameTest, whatCannotBeComparedIsNeverTheSame) {
  const std::function<void()> action = [] {};
  EXPECT_FALSE(same(action, action));
}

}  // namespace
}  // namespace tarnwell::view
