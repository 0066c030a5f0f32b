#include "host/linux/start/LaunchArguments.h"

#include <gtest/gtest.h>

#include <vector>

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

TEST(LaunchArgumentsTest, areNoneOrThatItIsAtLogin) {
  EXPECT_FALSE(LaunchArguments::parse({})->atLogin);
  EXPECT_TRUE(LaunchArguments::parse(std::vector<const char*>{"--launched-at-login"})->atLogin);
  for (const char* other : {"", "file", "--launched-at-login=no", "--help"}) {
    EXPECT_FALSE(LaunchArguments::parse(std::vector<const char*>{"--launched-at-login", other})) << other;
  }
}

}  // namespace
}  // namespace tarnwell::host_linux
