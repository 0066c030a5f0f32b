#include "commandline/words/Usage.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "profile/exports/Targets.h"

namespace tarnwell::commandline {
namespace {

TEST(Usage, helpNamesEveryCommand) {
  const std::string text = helpText("tarnwell", "Hidden settings");
  for (const Command& command : commands()) {
    EXPECT_THAT(text, testing::HasSubstr("\n  " + std::string(command.word) + " "));
    EXPECT_THAT(text, testing::HasSubstr(std::string(command.help) + "\n"));
  }
}

TEST(Usage, helpOfACommandNamesWhatItTakes) {
  const std::string text = helpText("tarnwell", *std::ranges::find(commands(), CommandName::apply, &Command::name));
  EXPECT_EQ(text,
            R"(Change what differs from a profile.
usage: tarnwell apply PROFILE [--check] [-n] [--no-restart] [-q]

Options:
      --check       change nothing; tell by the status whether anything would
  -n, --dry-run     print the command lines instead of running them
      --no-restart  do not restart the Dock
  -q, --quiet       do not print what changes
      --color=WHEN  auto, always or never
      --help        print what the command does and takes)");
}

TEST(Usage, helpOfExportNamesEveryFormat) {
  const std::string text =
      helpText("tarnwell", *std::ranges::find(commands(), CommandName::exportProfile, &Command::name));
  for (const profile::Target& target : profile::targets) {
    EXPECT_THAT(text, testing::ContainsRegex("\n  " + std::string(target.name) + " +" + std::string(target.purpose)));
  }
}

}  // namespace
}  // namespace tarnwell::commandline
