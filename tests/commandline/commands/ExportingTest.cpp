#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "commandline/Front.h"
#include "profile/exports/Targets.h"

namespace tarnwell::commandline {
namespace {

using testing::HasSubstr;

constexpr const char* quick = "profile = 1\n\n[dock]\nautohide-delay = 0.15\nmineffect = \"suck\"\n";

TEST(Exporting, whatTheDockHasIsAProfile) {
  const Front front(Front::Dock::isAbsent);
  front.run({"set", "autohide-delay=0.15", "mineffect=suck"});
  const Outcome outcome = front.run({"export"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.output, quick);
  EXPECT_EQ(front.run({"export", "--exact"}).output,
            "profile = 1\nunset = [\"autohide-time-modifier\", \"scroll-to-open\", \"showhidden\", \"static-only\", "
            "\"single-app\"]\n\n[dock]\nautohide-delay = 0.15\nmineffect = \"suck\"\n");
  EXPECT_THAT(front.run({"export", "--exact"}, {"MACOS_VERSION=15"}).output, testing::Not(HasSubstr("single-app")));
}

TEST(Exporting, whatNoProfileCanHaveIsLeftOut) {
  const Front front(Front::Dock::isAbsent);
  front.defaults({"write", "com.apple.dock", "autohide-delay", "-array"});
  front.defaults({"write", "com.apple.dock", "showhidden", "-int", "1"});
  const Outcome outcome = front.run({"export"});
  EXPECT_EQ(outcome.output, "profile = 1\n\n[dock]\nshowhidden = true\n");
  EXPECT_EQ(outcome.errors, "tarnwell: autohide-delay is not a number; left out\n");
}

TEST(Exporting, whatTheSystemDoesNotKnowIsLeftOutInSilence) {
  const Front front(Front::Dock::isAbsent);
  front.defaults({"write", "com.apple.dock", "single-app", "-array"});
  EXPECT_THAT(front.run({"export"}).errors, HasSubstr("single-app"));
  EXPECT_EQ(front.run({"export"}, {"MACOS_VERSION=15"}).errors, "");
}

TEST(Exporting, aPipeIsWrittenToAndStays) {
  const Front front(Front::Dock::isAbsent);
  const std::string pipe = front.file("pipe");
  const Outcome outcome = front.shell("mkfifo '" + pipe + "'; timeout 10 cat '" + pipe + "' & \"$T\" export -o '" +
                                      pipe + "'; wait; test -p '" + pipe + "'");
  EXPECT_EQ(outcome.status, 0) << outcome.errors;
  EXPECT_EQ(outcome.output, "profile = 1\n\n[dock]\n");
}

TEST(Exporting, aProfileIsSaidInEveryFormat) {
  const Front front(Front::Dock::isAbsent);
  front.system().folder().write("quick.toml", quick);
  for (const auto& target : profile::targets) {
    Words words = {"export", "--to", std::string(target.name), front.file("quick.toml")};
    if (target.option == profile::OwnOption::identifier) {
      words.insert(words.end(), {"--identifier", "org.example.dock"});
    }
    const Outcome outcome = front.run(words);
    EXPECT_EQ(outcome.status, 0) << target.name << outcome.errors;
    EXPECT_THAT(outcome.output, HasSubstr("autohide-delay")) << target.name;
  }
}

TEST(Exporting, anExportGoesToAFile) {
  const Front front(Front::Dock::isAbsent);
  front.run({"set", "mineffect=suck"});
  EXPECT_EQ(front.run({"export", "-o", front.file("dock.toml")}).output, "");
  EXPECT_EQ(front.run({"diff", front.file("dock.toml")}).status, 0);
  EXPECT_EQ(front.run({"export", "--output=/proc/dock.toml"}).status, 3);
}

TEST(Exporting, aFolderThatIsNotThereIsNotMade) {
  const Front front(Front::Dock::isAbsent);
  const Outcome outcome = front.run({"export", "-o", front.file("some/where/dock.toml")});
  EXPECT_EQ(outcome.status, 3);
  EXPECT_EQ(outcome.errors, "tarnwell: cannot write " + front.file("some/where/dock.toml") + ": there is no folder " +
                                front.file("some/where") + "\n");
  EXPECT_FALSE(front.system().folder().holds("some"));
  const Outcome beside = front.shell("cd / && cd '" + front.file("") + "' && \"$T\" export -o dock.toml");
  EXPECT_EQ(beside.status, 0) << beside.errors;
}

TEST(Exporting, anOptionThatTheFormatKnowsNotIsRefused) {
  const Front front(Front::Dock::isAbsent);
  const Outcome identifier = front.run({"export", "--to=sh", "--identifier=org.example.dock"});
  EXPECT_EQ(identifier.status, 2);
  EXPECT_EQ(identifier.output, "");
  EXPECT_EQ(identifier.errors, "tarnwell: --identifier is for --to mobileconfig alone, not for sh.\n");
  const Outcome restart = front.run({"export", "--restart"});
  EXPECT_EQ(restart.status, 2);
  EXPECT_EQ(restart.errors, "tarnwell: --restart is for --to home-manager alone, not for toml.\n");
  EXPECT_THAT(front.run({"export", "--restart", "--to=home-manager"}).output, HasSubstr("\n  home.activation"));
}

TEST(Exporting, whatAFormatCannotSayIsSaidOrRefused) {
  const Front front(Front::Dock::isAbsent);
  front.system().folder().write("some.toml", "profile = 1\nunset = [\"showhidden\"]\n[dock]\nmineffect = \"suck\"\n");
  const Words words = {"export", "--to=nix-darwin", front.file("some.toml")};
  const Outcome outcome = front.run(words);
  EXPECT_EQ(outcome.status, 0);
  EXPECT_THAT(outcome.errors, HasSubstr("showhidden"));
  Words strictly = words;
  strictly.insert(strictly.end(), {"--strict", "-o", front.file("dock.nix")});
  EXPECT_EQ(front.run(strictly).status, 2);
  EXPECT_FALSE(front.system().folder().holds("dock.nix"));
}

TEST(Exporting, whatAFormatNeedsHasToBeGiven) {
  const Front front(Front::Dock::isAbsent);
  front.system().folder().write("quick.toml", quick);
  const Outcome outcome = front.run({"export", "--to=mobileconfig", front.file("quick.toml")});
  EXPECT_EQ(outcome.status, 2);
  EXPECT_THAT(outcome.errors, HasSubstr(" --identifier org.example.dock"));
  EXPECT_EQ(front.run({"export", "--exact", front.file("quick.toml")}).status, 2);
}

}  // namespace
}  // namespace tarnwell::commandline
