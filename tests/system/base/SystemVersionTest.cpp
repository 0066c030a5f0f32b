#include "system/base/SystemVersion.h"

#include <gtest/gtest.h>

namespace tarnwell::system {
namespace {

TEST(SystemVersionTest, isNumbersWithPointsBetween) {
  const std::string version = systemVersion();
  EXPECT_NE(version, "");
  EXPECT_EQ(version.find_first_not_of("0123456789."), std::string::npos) << version;
  EXPECT_EQ(version.find(".."), std::string::npos) << version;
}

}  // namespace
}  // namespace tarnwell::system
