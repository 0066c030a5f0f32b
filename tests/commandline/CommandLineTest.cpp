#include "commandline/CommandLine.h"

#include <gtest/gtest.h>

#include <vector>

namespace tarnwell::commandline {
namespace {

const Product product = {.program = "tarnwell", .version = "1.2.3", .summary = "Hidden settings of the Dock"};

Request parse(const std::vector<const char*>& arguments) { return commandline::parse(product, arguments); }

TEST(CommandLine, withoutACommandTheWindowIsWanted) {
  EXPECT_TRUE(std::holds_alternative<ShowWindow>(parse({})));
  EXPECT_TRUE(std::holds_alternative<ShowWindow>(parse({"--launched-at-login"})));
}

TEST(CommandLine, printsItsVersion) { EXPECT_EQ(std::get<Print>(parse({"--version"})).text, "tarnwell 1.2.3"); }

TEST(CommandLine, printsHelpThatNamesWhatAUserMayType) {
  const std::string text = std::get<Print>(parse({"--help"})).text;
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
    const Request request = parse(arguments);
    ASSERT_TRUE(std::holds_alternative<system::Failure>(request)) << arguments.front();
    EXPECT_NE(std::get<system::Failure>(request).message.find("\nusage: tarnwell [--help | --version]"),
              std::string::npos);
  }
}

}  // namespace
}  // namespace tarnwell::commandline
