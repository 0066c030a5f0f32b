#include "commandline/words/Arguments.h"

#include <gtest/gtest.h>

namespace tarnwell::commandline {
namespace {

using CommandWords = std::vector<const char*>;

system::Result<Arguments> parse(const CommandWords& words) { return parseArguments("tarnwell", words); }

std::string complaint(const CommandWords& words) {
  const auto arguments = parse(words);
  return arguments ? "" : arguments.error().message.substr(0, arguments.error().message.find('\n'));
}

TEST(Arguments, optionsMayStandAnywhere) {
  const auto arguments = parse({"set", "-n", "a=1", "--quiet", "b=2", "--color=never"});
  ASSERT_TRUE(arguments);
  EXPECT_EQ(arguments->command->name, CommandName::set);
  EXPECT_EQ(arguments->operands, (std::vector<std::string>{"a=1", "b=2"}));
  EXPECT_TRUE(arguments->has(OptionName::dryRun));
  EXPECT_TRUE(arguments->has(OptionName::quiet));
  EXPECT_FALSE(arguments->has(OptionName::noRestart));
  EXPECT_EQ(arguments->value(OptionName::color), "never");
}

TEST(Arguments, lettersMayBeWrittenTogether) {
  const auto arguments = parse({"undo", "-nq"});
  ASSERT_TRUE(arguments);
  EXPECT_TRUE(arguments->has(OptionName::dryRun));
  EXPECT_TRUE(arguments->has(OptionName::quiet));
}

TEST(Arguments, aValueFollowsOrStandsBehindAnEqualsSignOrALetter) {
  EXPECT_EQ(parse({"get", "--default", "-1", "key"})->value(OptionName::defaultValue), "-1");
  EXPECT_EQ(parse({"get", "--default=", "key"})->value(OptionName::defaultValue), "");
  EXPECT_EQ(parse({"export", "-o", "file"})->value(OptionName::output), "file");
  EXPECT_EQ(parse({"export", "-ofile"})->value(OptionName::output), "file");
  EXPECT_EQ(parse({"export", "--to=sh", "--to", "plist"})->value(OptionName::to), "plist");
}

TEST(Arguments, nothingBehindTwoDashesIsAnOption) {
  EXPECT_EQ(parse({"apply", "--", "--check"})->operands, (std::vector<std::string>{"--check"}));
  EXPECT_EQ(parse({"apply", "-"})->operands, (std::vector<std::string>{"-"}));
}

TEST(Arguments, helpNeedsNoOtherWord) { EXPECT_TRUE(parse({"get", "--help"})->has(OptionName::help)); }

TEST(Arguments, refusesWhatTheCommandDoesNotTake) {
  EXPECT_EQ(complaint({"aply"}), "\"aply\" is not a command; did you mean apply?");
  EXPECT_EQ(complaint({"nonsense"}), "\"nonsense\" is not a command.");
  EXPECT_EQ(complaint({"set", "--dryrun"}), "\"--dryrun\" is not an option of set; did you mean --dry-run?");
  EXPECT_EQ(complaint({"set", "--dry"}), "\"--dry\" is not an option of set.") << "no abbreviations";
  EXPECT_EQ(complaint({"list", "-n"}), "\"-n\" is not an option of list.");
  EXPECT_EQ(complaint({"undo", "-nx"}), "\"-x\" is not an option of undo.");
  EXPECT_EQ(complaint({"list", "--json=yes"}), "--json takes no value.");
  EXPECT_EQ(complaint({"get", "key", "--default"}), "--default is followed by TEXT.");
  EXPECT_EQ(complaint({"list", "--color=alway"}), "\"alway\" is no WHEN of --color; did you mean always?");
  EXPECT_EQ(complaint({"export", "--to", "ansibel"}), "\"ansibel\" is no FORMAT of --to; did you mean ansible?");
  EXPECT_EQ(complaint({"export", "--to", "yaml"}),
            "\"yaml\" is no FORMAT of --to; it takes sh, ansible, nix-darwin, home-manager, mobileconfig, plist, json, "
            "toml.");
  EXPECT_EQ(complaint({"completion", "tcsh-6"}), "\"tcsh-6\" is not known to completion; it takes bash, zsh, fish.");
  EXPECT_EQ(complaint({"unset"}), "\"unset\" is not a command; did you mean reset?");
  EXPECT_EQ(complaint({"delete"}), "\"delete\" is not a command; did you mean reset?");
  EXPECT_EQ(complaint({"help"}), "\"help\" is not a command; did you mean --help?");
  EXPECT_EQ(complaint({"version"}), "\"version\" is not a command; did you mean --version?");
  EXPECT_EQ(complaint({"completion", "bsh"}), "\"bsh\" is not known to completion; did you mean bash?");
  EXPECT_EQ(complaint({"get"}), "There is a word missing behind get.");
  EXPECT_EQ(complaint({"get", "a", "b"}), "\"b\" is one word too many.");
}

TEST(Arguments, aRefusalSaysHowToTypeIt) {
  EXPECT_EQ(parse({"export", "a", "b"}).error().message,
            "\"b\" is one word too many.\nusage: tarnwell export [PROFILE] [--to FORMAT] [--exact] "
            "[--identifier TEXT] [--restart] [-o FILE] [--strict]");
}

}  // namespace
}  // namespace tarnwell::commandline
