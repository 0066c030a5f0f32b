#include "host/linux/LaunchArguments.h"

#include <gtest/gtest.h>

namespace tarnwell::host_linux {
namespace {

TEST(LaunchArgumentsTest, aPlainStartIsAnOpenEventAlone) {
  const auto event = std::get<LaunchArguments>(LaunchArguments::parse({})).event();
  EXPECT_EQ(event.eventID, 0x6F617070U);
  EXPECT_TRUE(event.parameters.empty());
}

TEST(LaunchArgumentsTest, aStartAtLoginSaysSo) {
  const auto event = std::get<LaunchArguments>(LaunchArguments::parse({"--launched-at-login"})).event();
  EXPECT_EQ(event.eventID, 0x6F617070U);
  EXPECT_EQ(event.parameters, (std::map<kit::FourCharCode, kit::FourCharCode>{{0x70726474, 0x6C676974}}));
}

TEST(LaunchArgumentsTest, anUnknownArgumentIsAFailure) {
  for (const char* argument : {"-x", "--launched-at-login=yes", "--LAUNCHED-AT-LOGIN", ""}) {
    const auto parsed = LaunchArguments::parse({"--launched-at-login", argument});
    ASSERT_TRUE(std::holds_alternative<Failure>(parsed)) << argument;
    EXPECT_EQ(std::get<Failure>(parsed).message, std::string("unknown argument ") + argument);
  }
}

}  // namespace
}  // namespace tarnwell::host_linux
