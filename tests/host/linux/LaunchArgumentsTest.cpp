#include "host/linux/LaunchArguments.h"

#include <gtest/gtest.h>

namespace tarnwell::host_linux {
namespace {

TEST(LaunchArgumentsTest, aPlainStartIsAnOpenEventAlone) {
  const auto event = LaunchArguments{}.event();
  EXPECT_EQ(event.eventID, 0x6F617070U);
  EXPECT_TRUE(event.parameters.empty());
}

TEST(LaunchArgumentsTest, aStartAtLoginSaysSo) {
  const auto event = LaunchArguments{.atLogin = true}.event();
  EXPECT_EQ(event.eventID, 0x6F617070U);
  EXPECT_EQ(event.parameters, (std::map<kit::FourCharCode, kit::FourCharCode>{{0x70726474, 0x6C676974}}));
}

}  // namespace
}  // namespace tarnwell::host_linux
