#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <csignal>

#include "commandline/Front.h"
#include "fixtures/WaitFor.h"

namespace tarnwell::commandline {
namespace {

using testing::HasSubstr;

constexpr const char* nothing = "tarnwell: nothing to change; Dock not touched\n";

TEST(Change, severalSettingsAreOneRestart) {
  const Front front;
  const Outcome outcome = front.run({"set", "autohide-delay=0", "mineffect=suck", "showhidden=YES"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.errors, "");
  EXPECT_EQ(outcome.output,
            "autohide-delay: not set -> 0.0\nmineffect: not set -> suck\nshowhidden: not set -> true\n");
  EXPECT_EQ(front.stored("autohide-delay"), "float 0");
  EXPECT_EQ(front.stored("mineffect"), "string suck");
  EXPECT_EQ(front.stored("showhidden"), "boolean 1");
  EXPECT_EQ(front.starts(), 2) << "it has come back by now";
  EXPECT_THAT(standin::fileContent(front.system().dockLog()), HasSubstr("mineffect=suck"));
}

TEST(Change, theDockStartsOnceForEachChangeAndForNothingElse) {
  const Front front;
  EXPECT_EQ(front.starts(), 1);
  front.run({"set", "mineffect=suck"});
  EXPECT_EQ(front.starts(), 2);
  front.run({"set", "mineffect=suck"});
  EXPECT_EQ(front.starts(), 2);
  front.system().folder().write("dock.toml", "profile = 1\n[dock]\nmineffect = \"scale\"\nshowhidden = true\n");
  front.run({"apply", front.file("dock.toml")});
  EXPECT_EQ(front.starts(), 3);
  front.defaults({"write", "com.apple.dock", "showhidden", "-int", "1"});
  front.run({"apply", front.file("dock.toml")});
  EXPECT_EQ(front.stored("showhidden"), "boolean 1");
  EXPECT_EQ(front.starts(), 4);
  front.run({"reset", "--all"});
  EXPECT_EQ(front.starts(), 5);
}

TEST(Change, whereNothingDiffersTheDockIsNotTouched) {
  const Front front;
  front.run({"set", "autohide-delay=0.1"});
  ASSERT_EQ(front.starts(), 2);
  for (const Words& words : {Words{"set", "autohide-delay=.1"}, Words{"reset", "mineffect"}}) {
    const Outcome outcome = front.run(words);
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.output, "");
    EXPECT_EQ(outcome.errors, nothing);
  }
  EXPECT_EQ(front.starts(), 2);
  front.watchShells();
  front.run({"set", "autohide-delay=0.1"});
  EXPECT_EQ(front.shellLines(), "defaults export com.apple.dock -\n");
}

TEST(Change, aWrongSettingAmongGoodOnesChangesNothing) {
  struct Row {
    Words words;
    std::string complaint;
  };
  const std::vector<Row> rows = {
      {{"autohide-dely=1"}, "\"autohide-dely\" is not a setting that Tarnwell knows; did you mean autohide-delay?"},
      {{"colour=red"}, "\"colour\" is not a setting that Tarnwell knows."},
      {{"autohide-delay=0,5"}, "autohide-delay is a number of seconds with a decimal point, not \"0,5\"."},
      {{"autohide-delay="}, "autohide-delay is a number of seconds with a decimal point, not \"\"."},
      {{"autohide-delay=-1"}, "autohide-delay is between 0 and 86400 seconds, not -1."},
      {{"autohide-delay=86401"}, "autohide-delay is between 0 and 86400 seconds, not 86401."},
      {{"autohide-delay=nan"}, "autohide-delay is between 0 and 86400 seconds, not nan."},
      {{"autohide-delay=inf"}, "autohide-delay is between 0 and 86400 seconds, not inf."},
      {{"autohide-delay=1e400"}, "autohide-delay is between 0 and 86400 seconds, not 1e400."},
      {{"autohide-delay=0x10"}, "autohide-delay is a number of seconds with a decimal point, not \"0x10\"."},
      {{"static-only=maybe"}, "static-only is true or false, not \"maybe\"."},
      {{"autohide-delay", "0"}, "Write it as autohide-delay=0."},
      {{"autohide-delay"}, "Write it as autohide-delay=VALUE."},
      {{"autohide-delay=1", "autohide-delay=1"}, "autohide-delay is named twice."},
  };
  const Front front;
  for (const Row& row : rows) {
    Words words = {"set", "mineffect=suck"};
    words.insert(words.end(), row.words.begin(), row.words.end());
    const Outcome outcome = front.run(words);
    EXPECT_EQ(outcome.status, 2) << row.complaint;
    EXPECT_EQ(outcome.errors, "tarnwell: " + row.complaint + "\n");
    EXPECT_EQ(outcome.output, "");
  }
  EXPECT_EQ(front.run({"set", "mineffect=swirl"}).errors,
            "tarnwell: mineffect is genie, scale or suck, not \"swirl\".\n");
  EXPECT_EQ(front.run({"set"}).status, 2);
  EXPECT_EQ(front.stored("mineffect"), "");
  EXPECT_EQ(front.starts(), 1);
}

TEST(Change, moreDigitsThanCanBeKeptAreRounded) {
  const Front front;
  EXPECT_EQ(front.run({"set", "autohide-delay=0.123456789", "autohide-time-modifier=0.0000001"}).output,
            "autohide-delay: not set -> 0.123457\nautohide-time-modifier: not set -> 0.0\n");
  EXPECT_EQ(front.run({"set", "autohide-delay=0.123456789"}).errors, nothing);
  EXPECT_EQ(front.starts(), 2) << "what is rounded to the stored value changes nothing";
  EXPECT_EQ(front.run({"set", "autohide-delay=86400"}).status, 0);
}

TEST(Change, everyWordForTrueAndFalseIsTaken) {
  const Front front;
  int starts = 1;
  for (const char* yes : {"true", "Yes", "ON", "1"}) {
    front.run({"set", std::string("showhidden=") + yes});
    EXPECT_EQ(front.stored("showhidden"), "boolean 1") << yes;
    EXPECT_EQ(front.starts(), starts += 1) << yes;
    front.run({"reset", "--no-restart", "showhidden"});
  }
  for (const char* no : {"false", "No", "OFF", "0"}) {
    front.run({"set", std::string("showhidden=") + no});
    EXPECT_EQ(front.stored("showhidden"), "boolean 0") << no;
    EXPECT_EQ(front.starts(), starts += 1) << no;
    front.run({"reset", "--no-restart", "showhidden"});
  }
}

TEST(Change, anotherWordForTheStoredValueChangesNothing) {
  const Front front;
  front.run({"set", "--no-restart", "showhidden=true", "static-only=false"});
  for (const char* word : {"showhidden=Yes", "showhidden=ON", "showhidden=1", "static-only=No", "static-only=0"}) {
    EXPECT_EQ(front.run({"set", word}).errors, nothing) << word;
  }
  EXPECT_EQ(front.starts(), 1);
}

TEST(Change, anEqualValueOfAnotherTypeIsRepaired) {
  const Front front;
  front.defaults({"write", "com.apple.dock", "scroll-to-open", "-int", "1"});
  front.defaults({"write", "com.apple.dock", "autohide-delay", "-int", "0"});
  front.defaults({"write", "com.apple.dock", "autohide-time-modifier", "-array", "a"});
  const Outcome outcome = front.run({"set", "scroll-to-open=true", "autohide-delay=0", "autohide-time-modifier=0.5"});
  EXPECT_EQ(outcome.output,
            "autohide-delay: integer 0 -> 0.0\nautohide-time-modifier: not a number -> 0.5\n"
            "scroll-to-open: integer 1 -> true\n");
  EXPECT_EQ(outcome.errors, "");
  EXPECT_EQ(front.stored("scroll-to-open"), "boolean 1");
  EXPECT_EQ(front.stored("autohide-delay"), "float 0");
  EXPECT_EQ(front.starts(), 2);
}

TEST(Change, aTextInThePlaceOfANumberIsReplaced) {
  const Front front;
  front.defaults({"write", "com.apple.dock", "autohide-delay", "-string", "yes"});
  front.defaults({"write", "com.apple.dock", "autohide-time-modifier", "-string", "0.5"});
  const Outcome outcome = front.run({"set", "autohide-delay=1", "autohide-time-modifier=0.5"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.output, "autohide-delay: not a number -> 1.0\nautohide-time-modifier: string 0.5 -> 0.5\n");
  EXPECT_EQ(outcome.errors, "");
  EXPECT_EQ(front.stored("autohide-delay"), "float 1");
  EXPECT_EQ(front.stored("autohide-time-modifier"), "float 0.5");
  EXPECT_EQ(front.starts(), 2);
}

TEST(Change, aValueOfNoUseIsKeptByWhatDoesNotNameIt) {
  const Front front(Front::Dock::isAbsent);
  front.defaults({"write", "com.apple.dock", "autohide-delay", "-array", "a"});
  const Outcome before = front.defaults({"read", "com.apple.dock", "autohide-delay"});
  front.system().folder().write("dock.toml", "profile = 1\n[dock]\nmineffect = \"scale\"\n");
  for (const Words& words : {Words{"set", "mineffect=suck"}, Words{"apply", front.file("dock.toml")}, Words{"undo"},
                             Words{"reset", "mineffect"}, Words{"list"}, Words{"export"}, Words{"restart"}}) {
    EXPECT_EQ(front.run(words).status, 0) << words.front();
    EXPECT_EQ(front.defaults({"read", "com.apple.dock", "autohide-delay"}).output, before.output) << words.front();
  }
}

TEST(Change, byRootIsOfRootsOwnSettings) {
  const Front front;
  const Outcome outcome = front.shell("unshare --user --map-root-user \"$T\" set mineffect=suck");
  if (outcome.status == 1 && outcome.errors.starts_with("unshare:")) {
    GTEST_SKIP() << "no process may play root here: " << outcome.errors;
  }
  EXPECT_EQ(outcome.output, "mineffect: not set -> suck\n") << outcome.errors;
  EXPECT_EQ(front.stored("mineffect"), "string suck");
  EXPECT_EQ(front.starts(), 1) << "the Dock is another user's";
}

TEST(Change, resetTakesKeysAway) {
  const Front front;
  front.run({"set", "autohide-delay=1", "mineffect=scale", "showhidden=on"});
  EXPECT_EQ(front.run({"reset", "mineffect"}).output, "mineffect: scale -> not set\n");
  EXPECT_EQ(front.stored("mineffect"), "");
  EXPECT_EQ(front.run({"reset", "--all"}).output, "autohide-delay: 1.0 -> not set\nshowhidden: true -> not set\n");
  EXPECT_EQ(front.starts(), 4);
  EXPECT_EQ(front.run({"reset"}).errors, "tarnwell: Name settings, or say --all.\n");
  EXPECT_EQ(front.run({"reset", "--all", "mineffect"}).status, 2);
}

TEST(Change, otherKeysOfTheDockStay) {
  const Front front(Front::Dock::isAbsent);
  front.defaults({"write", "com.apple.dock", "tilesize", "-int", "48"});
  front.run({"set", "mineffect=suck"});
  front.run({"reset", "--all"});
  EXPECT_EQ(front.stored("tilesize"), "integer 48");
}

TEST(Change, aDryRunPrintsTheLinesAndRunsNone) {
  const Front front;
  front.run({"set", "showhidden=on"});
  const Outcome outcome = front.run({"set", "-n", "autohide-delay=0.15", "mineffect=suck"});
  EXPECT_EQ(outcome.output,
            "defaults write com.apple.dock autohide-delay -float 0.15 && "
            "defaults write com.apple.dock mineffect -string suck\nkillall Dock\n");
  EXPECT_EQ(front.run({"reset", "--all", "--dry-run", "--no-restart"}).output,
            "defaults delete com.apple.dock showhidden\n");
  EXPECT_EQ(front.run({"set", "-n", "showhidden=on"}).errors, nothing);
  EXPECT_EQ(front.stored("mineffect"), "");
  EXPECT_EQ(front.starts(), 2);
}

TEST(Change, theRestartCanBeLeftForLater) {
  const Front front;
  EXPECT_EQ(front.run({"set", "--no-restart", "mineffect=suck"}).output, "mineffect: not set -> suck\n");
  EXPECT_EQ(front.starts(), 1);
  const Outcome restart = front.run({"restart"});
  EXPECT_EQ(restart.status, 0);
  EXPECT_EQ(restart.output + restart.errors, "");
  EXPECT_EQ(front.starts(), 2);
}

TEST(Change, quietlyNothingIsSaid) {
  const Front front(Front::Dock::isAbsent);
  for (const char* word : {"mineffect=suck", "mineffect=suck", "static-only=on"}) {
    const Outcome outcome = front.run({"set", "-q", word});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.output + outcome.errors, "") << word;
  }
}

TEST(Change, withoutADockTheSettingsWaitForOne) {
  const Front front(Front::Dock::isAbsent);
  const Outcome outcome = front.run({"set", "mineffect=suck"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.output, "mineffect: not set -> suck\n");
  EXPECT_EQ(outcome.errors, "tarnwell: No Dock is running; the settings hold when it starts.\n");
  EXPECT_EQ(front.run({"restart"}).errors, outcome.errors);
}

TEST(Change, whatIsForcedIsWrittenWithAWarning) {
  const Front front;
  front.shell(R"sh("$D" write "/Library/Managed Preferences/$(id -un)/com.apple.dock" mineffect genie)sh");
  const Outcome outcome = front.run({"set", "mineffect=suck", "showhidden=on"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.errors,
            "tarnwell: mineffect is forced by a configuration profile; your value counts when that is gone\n");
  EXPECT_EQ(front.stored("mineffect"), "string suck");
  EXPECT_EQ(front.starts(), 2);
}

TEST(Change, systemsFrom15OnLeaveSingleAppAlone) {
  const Front front;
  const Outcome outcome = front.run({"set", "mineffect=suck", "single-app=true"}, {"MACOS_VERSION=15"});
  EXPECT_EQ(outcome.status, 2);
  EXPECT_EQ(outcome.errors, "tarnwell: single-app has no effect from macOS 15 on.\n");
  EXPECT_EQ(front.run({"reset", "single-app"}, {"MACOS_VERSION=15"}).status, 2);
  front.defaults({"write", "com.apple.dock", "single-app", "-bool", "true"});
  EXPECT_EQ(front.run({"reset", "--all"}, {"MACOS_VERSION=15"}).errors, nothing);
  EXPECT_EQ(front.stored("single-app"), "boolean 1");
  EXPECT_EQ(front.stored("mineffect"), "");
  EXPECT_EQ(front.starts(), 1);
}

TEST(Change, allSettingsAreKeptBeforeTheFirstStaticOnly) {
  const Front front;
  front.defaults({"write", "com.apple.dock", "persistent-apps", "-array", "one", "two"});
  const std::string kept = front.stateFolder() + "/before-static-only.plist";
  const std::string errors = front.run({"set", "static-only=true"}).errors;
  const std::string introduction = "tarnwell: all settings of the Dock are kept in " + kept + "; to bring them back: ";
  ASSERT_THAT(errors, testing::StartsWith(introduction));
  EXPECT_EQ(front.starts(), 2);
  const std::string line = errors.substr(introduction.size(), errors.find('\n') - introduction.size());
  EXPECT_THAT(line, testing::EndsWith("import com.apple.dock '" + kept + "'"));
  front.defaults({"delete", "com.apple.dock", "persistent-apps"});
  EXPECT_EQ(front.shell("PATH=/usr/bin:/bin; " + line).status, 0) << "as a user would run it";
  EXPECT_THAT(front.stored("persistent-apps"), HasSubstr("one"));
  EXPECT_EQ(front.stored("static-only"), "boolean 1") << "what is imported is what was there, and no more";
  front.run({"set", "static-only=false"});
  EXPECT_THAT(front.run({"set", "static-only=true"}).errors, testing::Not(HasSubstr("are kept")));
}

TEST(Change, allSettingsAreKeptBeforeAProfileBringsTheFirstStaticOnly) {
  const Front front;
  front.defaults({"write", "com.apple.dock", "persistent-apps", "-array", "one", "two"});
  const Outcome before = front.defaults({"export", "com.apple.dock", "-"});
  const std::string kept = front.stateFolder() + "/before-static-only.plist";
  const Outcome outcome = front.shell(R"(printf 'profile = 1\n[dock]\nstatic-only = true\n' | "$T" apply -)");
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.output, "static-only: not set -> true\n");
  EXPECT_THAT(outcome.errors, HasSubstr("all settings of the Dock are kept in " + kept));
  EXPECT_EQ(standin::fileContent(kept), before.output);
  EXPECT_EQ(front.starts(), 2);
}

TEST(Change, theDryRunOfStaticOnlyKeepsNothing) {
  const Front front(Front::Dock::isAbsent);
  EXPECT_EQ(front.run({"set", "-n", "static-only=true"}).errors, "");
  EXPECT_FALSE(std::filesystem::exists(front.stateFolder()));
}

TEST(Change, thoseAtOnceTakeTurns) {
  const Front front;
  std::vector<std::unique_ptr<standin::Process>> all;
  for (const char* word : {"mineffect=suck", "showhidden=on", "autohide-delay=1", "scroll-to-open=on"}) {
    all.push_back(front.start({"set", word}));
  }
  for (const auto& process : all) {
    const Outcome outcome = process->wait();
    EXPECT_EQ(outcome.status, 0) << outcome.errors;
  }
  EXPECT_EQ(front.starts(), 5);
  for (const char* key : {"mineffect", "showhidden", "autohide-delay", "scroll-to-open"}) {
    EXPECT_NE(front.stored(key), "") << key;
  }
  EXPECT_THAT(front.run({"undo"}).output, testing::EndsWith(" -> not set\n"));
}

// The tool waits for the number of the process that it is to interrupt.
constexpr const char* interruptingWrite = R"sh(case $1 in
  write)
    until [ -s "$MACOS_ROOT/number" ]; do sleep 0.05; done
    kill -INT "$(cat "$MACOS_ROOT/number")"
    ;;
esac
exec "$REAL" "$@")sh";

TEST(Change, anInterruptionWaitsForTheDock) {
  Front front;
  front.replaceTool("defaults", interruptingWrite);
  const auto process = front.start({"set", "mineffect=suck"});
  front.system().folder().write("root/number", std::to_string(process->id()));
  const Outcome outcome = process->wait();
  EXPECT_EQ(outcome.signal, SIGINT) << outcome.errors;
  EXPECT_EQ(front.stored("mineffect"), "string suck");
  EXPECT_EQ(front.starts(), 2);
}

}  // namespace
}  // namespace tarnwell::commandline
