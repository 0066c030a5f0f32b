#include "commandline/CommandLine.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "commandline/Front.h"

namespace tarnwell::commandline {
namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

constexpr const char* usage = "usage: tarnwell [--help | --version | COMMAND ...]\n";

TEST(CommandLine, withoutACommandTheWindowIsWanted) {
  const Product product = {.program = "tarnwell"};
  const std::array<const char*, 1> atLogin = {"--launched-at-login"};
  EXPECT_EQ(run(product, {}), std::nullopt);
  EXPECT_EQ(run(product, atLogin), std::nullopt);
}

TEST(CommandLine, printsItsVersion) {
  const Front front(Front::Dock::isAbsent);
  const Outcome outcome = front.run({"--version"});
  EXPECT_THAT(outcome.output, testing::MatchesRegex("tarnwell [0-9.]+\n"));
  EXPECT_EQ(outcome.status, 0);
}

TEST(CommandLine, printsHelpThatNamesWhatAUserMayType) {
  const Front front(Front::Dock::isAbsent);
  const std::string text = front.run({"--help"}).output;
  for (const char* typed : {"--help", "--version", "set KEY=VALUE...", "completion SHELL"}) {
    EXPECT_THAT(text, HasSubstr(typed));
  }
  EXPECT_THAT(text, testing::Not(HasSubstr("--launched-at-login")));
  EXPECT_THAT(text, EndsWith("and exit\n"));
}

TEST(CommandLine, refusesWhatItDoesNotKnowAndSaysHow) {
  const Front front(Front::Dock::isAbsent);
  const std::vector<Words> rows = {{"-x"},
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
  for (const Words& words : rows) {
    const Outcome outcome = front.run(words);
    EXPECT_EQ(outcome.status, 2) << words.front();
    EXPECT_EQ(outcome.output, "");
    EXPECT_THAT(outcome.errors, StartsWith("tarnwell: "));
    EXPECT_THAT(outcome.errors, EndsWith(usage));
  }
}

TEST(CommandLine, suggestsACommandAndRunsNone) {
  const Front front;
  const Outcome outcome = front.run({"restrat"});
  EXPECT_EQ(outcome.status, 2);
  EXPECT_EQ(outcome.errors, std::string("tarnwell: \"restrat\" is not a command; did you mean restart?\n") + usage);
  EXPECT_EQ(front.starts(), 1);
}

TEST(CommandLine, suggestsAnOption) {
  const Front front;
  const Outcome outcome = front.run({"list", "--josn"});
  EXPECT_EQ(outcome.status, 2);
  EXPECT_EQ(outcome.errors,
            "tarnwell: \"--josn\" is not an option of list; did you mean --json?\nusage: tarnwell list [--json]\n");
  EXPECT_EQ(front.run({"set", "mineffect=suck", "--dryrun"}).status, 2);
  EXPECT_EQ(front.stored("mineffect"), "");
  EXPECT_EQ(front.starts(), 1);
}

TEST(CommandLine, suggestsAnOptionOfItsOwn) {
  const Front front(Front::Dock::isAbsent);
  for (const auto& [typed, meant] : {std::pair("--versoin", "--version"), std::pair("--hlep", "--help")}) {
    const Outcome outcome = front.run({typed});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.errors, std::string("tarnwell: \"") + typed + "\" is not an argument of tarnwell; did you mean " +
                                  meant + "?\n" + usage);
  }
}

TEST(CommandLine, endsQuietlyWhenItsReaderDoes) {
  const Front front(Front::Dock::isAbsent);
  const std::string pipe = "'" + front.file("pipe") + "'";
  const std::string closed = "mkfifo " + pipe + "; : <" + pipe + " & exec 3>" + pipe + "; wait; ";
  const Outcome outcome = front.shell(closed + R"("$T" explain >&3; echo "$?")");
  EXPECT_EQ(outcome.output, "141\n");
  EXPECT_EQ(outcome.errors, "");
}

TEST(CommandLine, saysSoWhenItsAnswerIsLost) {
  const Front front(Front::Dock::isAbsent);
  const Outcome outcome = front.shell("\"$T\" explain >/dev/full");
  EXPECT_EQ(outcome.status, 3);
  EXPECT_EQ(outcome.errors, "tarnwell: cannot print: No space left on device\n");
}

TEST(CommandLine, systemsThatAreTooOldAreRefusedAsByTheWindow) {
  const Front front;
  for (const Words& words : {Words{"list"}, Words{"set", "mineffect=suck"}, Words{"restart"}}) {
    const Outcome outcome = front.run(words, {"MACOS_VERSION=13.2"});
    EXPECT_EQ(outcome.status, 2) << words.front();
    EXPECT_EQ(outcome.errors, "tarnwell: MACOS_VERSION is \"13.2\": the oldest supported version is 14\n");
  }
  EXPECT_EQ(front.stored("mineffect"), "");
  EXPECT_EQ(front.starts(), 1);
}

TEST(CommandLine, whatTouchesNoSystemWorksOnAnyOne) {
  const Front front(Front::Dock::isAbsent);
  front.system().folder().write("some.toml", "profile = 1\n[dock]\nmineffect = \"suck\"\n");
  const std::string some = front.file("some.toml");
  front.watchShells();
  for (const Words& words : {Words{"explain"}, Words{"explain", "mineffect", "--json"}, Words{"completion", "bash"},
                             Words{"diff", some, some}, Words{"export", some, "--to", "sh"}, Words{"set", "--help"}}) {
    const Outcome outcome = front.run(words, {"MACOS_VERSION=13.2"});
    EXPECT_EQ(outcome.status, 0) << words.front() << outcome.errors;
  }
  EXPECT_EQ(front.shellLines(), "");
  for (const Words& words : {Words{"diff", some}, Words{"export"}, Words{"apply", some}, Words{"undo"}}) {
    EXPECT_EQ(front.run(words, {"MACOS_VERSION=13.2"}).status, 2) << words.front();
  }
}

}  // namespace
}  // namespace tarnwell::commandline
