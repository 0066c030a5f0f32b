#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "commandline/Front.h"

namespace tarnwell::commandline {
namespace {

using testing::HasSubstr;

TEST(Undo, takesTheLastChangeBackAndThenBringsItAgain) {
  const Front front;
  front.run({"set", "mineffect=scale"});
  front.run({"set", "mineffect=suck", "autohide-delay=0.15"});
  EXPECT_EQ(front.run({"undo"}).output, "autohide-delay: 0.15 -> not set\nmineffect: suck -> scale\n");
  EXPECT_EQ(front.stored("autohide-delay"), "");
  EXPECT_EQ(front.stored("mineffect"), "string scale");
  EXPECT_EQ(front.run({"undo"}).output, "autohide-delay: not set -> 0.15\nmineffect: scale -> suck\n");
  EXPECT_EQ(front.starts(), 5);
}

TEST(Undo, touchesWhatWasChangedAlone) {
  const Front front(Front::Dock::isAbsent);
  front.run({"set", "mineffect=suck"});
  front.defaults({"write", "com.apple.dock", "showhidden", "-bool", "true"});
  EXPECT_EQ(front.run({"undo"}).output, "mineffect: suck -> not set\n");
  EXPECT_EQ(front.stored("showhidden"), "boolean 1");
}

TEST(Undo, takesAResetAndAProfileBack) {
  const Front front(Front::Dock::isAbsent);
  front.run({"set", "mineffect=suck"});
  front.run({"reset", "--all"});
  EXPECT_EQ(front.run({"undo"}).output, "mineffect: not set -> suck\n");
  front.shell(R"(printf 'profile = 1\nunset = ["mineffect"]\n[dock]\nshowhidden = true\n' | "$T" apply -)");
  EXPECT_EQ(front.run({"undo"}).output, "mineffect: not set -> suck\nshowhidden: true -> not set\n");
}

TEST(Undo, whatChangedNothingIsNotRemembered) {
  const Front front(Front::Dock::isAbsent);
  front.run({"set", "mineffect=suck"});
  front.run({"set", "mineffect=suck"});
  front.run({"set", "-n", "mineffect=scale"});
  EXPECT_EQ(front.run({"undo", "-n"}).output, "defaults delete com.apple.dock mineffect\nkillall Dock\n");
  EXPECT_EQ(front.run({"undo"}).output, "mineffect: suck -> not set\n");
}

TEST(Undo, withoutAChangeIsANo) {
  const Front front(Front::Dock::isAbsent);
  const Outcome outcome = front.run({"undo"});
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.errors, "tarnwell: There is no change to take back.\n");
}

TEST(Undo, aDamagedMemoryIsRefused) {
  const Front front(Front::Dock::isAbsent);
  front.run({"set", "mineffect=suck"});
  const std::string file = front.stateFolder() + "/undo.toml";
  front.system().folder().write("state/tarnwell/undo.toml", "profile = 1\nnonsense\n");
  const Outcome outcome = front.run({"undo"});
  EXPECT_EQ(outcome.status, 2);
  EXPECT_THAT(outcome.errors, HasSubstr(file + ":2:"));
  EXPECT_EQ(front.stored("mineffect"), "string suck");
}

TEST(Undo, withoutAFolderForItNothingIsChanged) {
  const Front front(Front::Dock::isAbsent);
  const Outcome outcome = front.run({"set", "mineffect=suck"}, {"XDG_STATE_HOME=", "HOME="});
  EXPECT_EQ(outcome.status, 3);
  EXPECT_THAT(outcome.errors, HasSubstr("HOME names no folder"));
  EXPECT_EQ(front.stored("mineffect"), "");
}

}  // namespace
}  // namespace tarnwell::commandline
