#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "commandline/Front.h"

namespace tarnwell::commandline {
namespace {

using nlohmann::json;
using testing::HasSubstr;

/// A front with a profile "quick.toml".
class Comparing : public testing::Test {
 protected:
  Comparing() {
    write("quick.toml",
          "profile = 1\nunset = [\"showhidden\"]\n[dock]\nautohide-delay = 0.15\nscroll-to-open = true\n");
  }

  void write(const std::string& name, const std::string& text) const { front.system().folder().write(name, text); }

  const Front front;
  const std::string quick = front.file("quick.toml");
};

TEST_F(Comparing, aProfileDiffersFromTheDockInWhatWouldChange) {
  front.defaults({"write", "com.apple.dock", "scroll-to-open", "-int", "1"});
  for (const Words& words : {Words{"diff", quick}, Words{"apply", "--check", quick}}) {
    const Outcome outcome = front.run(words);
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.output, "autohide-delay: not set -> 0.15\nscroll-to-open: integer 1 -> true\n");
    EXPECT_EQ(outcome.errors, "");
  }
  EXPECT_EQ(front.stored("scroll-to-open"), "integer 1");
  EXPECT_EQ(front.starts(), 1);
}

TEST_F(Comparing, applyMakesTheDockLikeTheProfileOnce) {
  front.defaults({"write", "com.apple.dock", "showhidden", "-bool", "true"});
  EXPECT_EQ(front.run({"apply", quick}).output,
            "autohide-delay: not set -> 0.15\nscroll-to-open: not set -> true\nshowhidden: true -> not set\n");
  EXPECT_EQ(front.starts(), 2);
  EXPECT_EQ(front.run({"apply", quick}).errors, "tarnwell: nothing to change; Dock not touched\n");
  const Outcome same = front.run({"diff", quick});
  EXPECT_EQ(same.status, 0);
  EXPECT_EQ(same.output + same.errors, "");
  EXPECT_EQ(front.starts(), 2);
}

TEST_F(Comparing, aDryRunOfApplyPrintsTheLines) {
  const Outcome outcome = front.run({"apply", "--dry-run", quick});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.output,
            "defaults write com.apple.dock autohide-delay -float 0.15 && "
            "defaults write com.apple.dock scroll-to-open -bool true\nkillall Dock\n");
}

TEST_F(Comparing, aProfileMayComeFromStandardInputOrAPipe) {
  EXPECT_THAT(front.shell("\"$T\" diff - <'" + quick + "'").output, HasSubstr("autohide-delay: not set -> 0.15"));
  EXPECT_THAT(front.shell("cat '" + quick + "' | \"$T\" diff /dev/stdin").output, HasSubstr("-> 0.15"));
}

TEST_F(Comparing, twoProfilesAreComparedWithoutASystem) {
  write("slow.toml", "profile = 1\n[dock]\nautohide-delay = 1.0\nscroll-to-open = true\nmineffect = \"suck\"\n");
  const Outcome outcome = front.run({"diff", quick, front.file("slow.toml")}, {"MACOS_ROOT=/nowhere"});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.output,
            "autohide-delay: 0.15 -> 1.0\nmineffect: left alone -> suck\nshowhidden: not set -> left alone\n");
  EXPECT_EQ(front.run({"diff", quick, quick}).status, 0);
}

TEST_F(Comparing, jsonSaysFromAndTo) {
  front.defaults({"write", "com.apple.dock", "scroll-to-open", "-int", "1"});
  EXPECT_EQ(json::parse(front.run({"diff", "--json", quick}).output), json::parse(R"({"format": 1, "differences": [
                {"key": "autohide-delay", "from": null, "to": 0.15},
                {"key": "scroll-to-open", "from": true, "to": true, "stored": "integer"}]})"));
  write("slow.toml", "profile = 1\n[dock]\nautohide-delay = 1.0\nscroll-to-open = true\n");
  EXPECT_EQ(
      json::parse(front.run({"diff", "--json", quick, front.file("slow.toml")}).output)["differences"],
      json::parse(R"([{"key": "autohide-delay", "from": 0.15, "to": 1.0}, {"key": "showhidden", "from": null}])"));
  EXPECT_EQ(json::parse(front.run({"diff", "--json", quick, quick}).output)["differences"], json::array());
}

TEST_F(Comparing, anEffectInOtherLettersDiffersAsListHasIt) {
  front.defaults({"write", "com.apple.dock", "mineffect", "-string", "Suck"});
  write("suck.toml", "profile = 1\n[dock]\nmineffect = \"suck\"\n");
  const std::string suck = front.file("suck.toml");
  EXPECT_EQ(front.run({"diff", suck}).output, "mineffect: string Suck -> suck\n");
  EXPECT_THAT(front.run({"list"}).output, HasSubstr("mineffect                suck   stored as string Suck\n"));
  EXPECT_EQ(json::parse(front.run({"diff", "--json", suck}).output)["differences"],
            json::parse(R"([{"key": "mineffect", "from": "suck", "to": "suck", "stored": "string"}])"))
      << "what it means";
}

TEST_F(Comparing, aProfileThatIsWrongTouchesNothing) {
  write("wrong.toml", "profile = 1\n[dock]\nautohide-delay = 0.1\nmineffect = \"swirl\"\n");
  for (const char* command : {"diff", "apply"}) {
    const Outcome outcome = front.run({command, front.file("wrong.toml")});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_THAT(outcome.errors, HasSubstr(front.file("wrong.toml") + ":4:"));
  }
  const Outcome missing = front.run({"apply", front.file("nowhere.toml")});
  EXPECT_EQ(missing.status, 2);
  EXPECT_EQ(missing.errors, "tarnwell: cannot read " + front.file("nowhere.toml") + ": No such file or directory\n");
  EXPECT_EQ(front.stored("autohide-delay"), "");
  EXPECT_EQ(front.starts(), 1);
}

TEST_F(Comparing, whatTheSystemDoesNotKnowIsLeftAlone) {
  write("single.toml", "profile = 1\n[dock]\nsingle-app = true\nmineffect = \"suck\"\n");
  const Outcome outcome = front.run({"apply", front.file("single.toml")}, {"MACOS_VERSION=15"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.output, "mineffect: not set -> suck\n");
  EXPECT_EQ(outcome.errors, "tarnwell: single-app has no effect from macOS 15 on; left alone\n");
  EXPECT_EQ(front.stored("single-app"), "");
  EXPECT_EQ(front.starts(), 2);
  EXPECT_EQ(front.run({"apply", front.file("single.toml")}, {"MACOS_VERSION=15"}).errors,
            outcome.errors + "tarnwell: nothing to change; Dock not touched\n");
  EXPECT_EQ(front.starts(), 2);
}

TEST_F(Comparing, aValueOfNoUseIsReplacedByApply) {
  front.defaults({"write", "com.apple.dock", "autohide-delay", "-string", "yes"});
  front.defaults({"write", "com.apple.dock", "scroll-to-open", "-array", "a"});
  front.defaults({"write", "com.apple.dock", "showhidden", "-dict", "a", "b"});
  const Outcome outcome = front.run({"apply", quick});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.output,
            "autohide-delay: not a number -> 0.15\nscroll-to-open: neither true nor false -> true\n"
            "showhidden: neither true nor false -> not set\n");
  EXPECT_EQ(outcome.errors, "");
  EXPECT_EQ(front.stored("autohide-delay"), "float 0.15");
  EXPECT_EQ(front.stored("scroll-to-open"), "boolean 1");
  EXPECT_EQ(front.stored("showhidden"), "");
  EXPECT_EQ(front.starts(), 2);
}

}  // namespace
}  // namespace tarnwell::commandline
