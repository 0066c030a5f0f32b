#include "host/linux/CommandLine.h"

#include <gtest/gtest.h>

#include <vector>

namespace tarnwell::host_linux {
namespace {

const kit::Product product = {.program = "tarnwell", .version = "1.2.3", .summary = "Hidden settings of the Dock"};

CommandLine::Parsed parse(std::vector<const char*> arguments) {
  arguments.insert(arguments.begin(), "tarnwell");
  return CommandLine::parse(product, static_cast<int>(arguments.size()), arguments.data());
}

TEST(CommandLine, withoutArgumentsStarts) {
  const auto parsed = parse({});
  ASSERT_TRUE(std::holds_alternative<LaunchArguments>(parsed));
  EXPECT_FALSE(std::get<LaunchArguments>(parsed).atLogin);
}

TEST(CommandLine, knowsAStartAtLogin) {
  EXPECT_TRUE(std::get<LaunchArguments>(parse({"--launched-at-login"})).atLogin);
}

TEST(CommandLine, printsItsVersion) {
  EXPECT_EQ(std::get<CommandLine::Print>(parse({"--version"})).text, "tarnwell 1.2.3");
}

TEST(CommandLine, printsHelpThatNamesWhatAUserMayType) {
  const std::string text = std::get<CommandLine::Print>(parse({"--help"})).text;
  EXPECT_NE(text.find("--help"), std::string::npos);
  EXPECT_NE(text.find("--version"), std::string::npos);
  EXPECT_EQ(text.find("--launched-at-login"), std::string::npos);
  EXPECT_TRUE(text.ends_with("and exit")) << "an empty line would follow";
}

TEST(CommandLine, refusesWhatItDoesNotKnowAndSaysHow) {
  const std::vector<std::vector<const char*>> rows = {{"-x"},
                                                      {"--verbose"},
                                                      {"file"},
                                                      {"--launched-at-login=maybe"},
                                                      {"--launched-at-login=no"},
                                                      {"--LAUNCHED-AT-LOGIN"},
                                                      {""},
                                                      {"--help", "file"},
                                                      {"--help", "--bogus"},
                                                      {"file", "--version"},
                                                      {"--version=3"},
                                                      {"--help", "--version"},
                                                      {"--"}};
  for (const auto& arguments : rows) {
    const auto parsed = parse(arguments);
    ASSERT_TRUE(std::holds_alternative<system::Failure>(parsed)) << arguments.front();
    EXPECT_NE(std::get<system::Failure>(parsed).message.find("\nusage: tarnwell [--help | --version]"),
              std::string::npos);
  }
}

}  // namespace
}  // namespace tarnwell::host_linux
