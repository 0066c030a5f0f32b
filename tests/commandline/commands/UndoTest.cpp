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

TEST(Undo, whatWasStoredComesBackInItsOwnTypeAndGoesAgain) {
  const std::vector<std::string> elements = {
      "<true/>",
      "<false/>",
      "<integer>1</integer>",
      "<integer>-9007199254740993</integer>",
      "<integer>18446744073709551615</integer>",
      "<real>0.1</real>",
      "<real>0.12345678901234568</real>",
      "<real>1e-300</real>",
      "<string></string>",
      "<string>it's &lt;b&gt; &amp; \"$(touch trapped)\" `x` \\ é&#13;\n !</string>",
      "<array><integer>1</integer><string>a'b&#13;</string><array/></array>",
      "<dict><key>a&lt;</key><dict><key>b</key><real>0.1</real></dict></dict>",
      "<date>2026-11-22T10:00:00Z</date>",
      "<data>AAECAwQ=</data>",
  };
  const Front front(Front::Dock::isAbsent);
  front.defaults({"write", "com.apple.dock", "tilesize", "-int", "48"});
  const auto all = [&front] { return front.defaults({"export", "com.apple.dock", "-"}).output; };
  for (const std::string& element : elements) {
    ASSERT_EQ(front.defaults({"write", "com.apple.dock", "mineffect", element}).status, 0) << element;
    const std::string before = all();
    front.run({"set", "-q", "mineffect=suck"});
    const std::string after = all();
    EXPECT_NE(after, before) << element;
    for (const std::string& expected : {before, after, before}) {
      const Outcome undo = front.run({"undo", "-q"});
      EXPECT_EQ(undo.status, 0) << undo.errors;
      EXPECT_EQ(undo.errors, "");
      EXPECT_EQ(all(), expected) << element;
    }
  }
  EXPECT_FALSE(std::filesystem::exists("trapped"));
}

TEST(Undo, ofResetAndApplyBringsTypesBackAsWell) {
  const Front front(Front::Dock::isAbsent);
  front.defaults({"write", "com.apple.dock", "showhidden", "-int", "1"});
  front.run({"reset", "--all"});
  EXPECT_EQ(front.run({"undo"}).output, "showhidden: not set -> integer 1\n");
  EXPECT_EQ(front.stored("showhidden"), "integer 1");
  front.shell(R"(printf 'profile = 1\n[dock]\nshowhidden = true\n' | "$T" apply -)");
  EXPECT_EQ(front.stored("showhidden"), "boolean 1");
  EXPECT_EQ(front.run({"undo", "-n", "--no-restart"}).output,
            "defaults write com.apple.dock showhidden '<integer>1</integer>'\n");
  EXPECT_EQ(front.run({"undo"}).output, "showhidden: true -> integer 1\n");
  EXPECT_EQ(front.stored("showhidden"), "integer 1");
}

TEST(Undo, whatIsTooLargeForACommandLineIsLeftOutWithAWord) {
  const Front front(Front::Dock::isAbsent);
  front.defaults({"write", "com.apple.dock", "mineffect", "-string", std::string(20000, 'x')});
  const Outcome outcome = front.run({"set", "mineffect=suck", "showhidden=on"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_THAT(outcome.errors, HasSubstr("tarnwell: mineffect was no effect; undo will not bring that back\n"));
  EXPECT_EQ(front.run({"undo"}).output, "showhidden: true -> not set\n");
  EXPECT_EQ(front.stored("mineffect"), "string suck");
}

TEST(Undo, whatThisSystemDoesNotKnowWaitsForOneThatDoes) {
  const Front front(Front::Dock::isAbsent);
  front.run({"set", "mineffect=suck", "single-app=true"});
  const Words later = {"MACOS_VERSION=15"};
  const Outcome undo = front.run({"undo"}, later);
  EXPECT_EQ(undo.output, "mineffect: suck -> not set\n");
  EXPECT_THAT(undo.errors, HasSubstr("single-app has no effect from macOS 15 on; left alone\n"));
  EXPECT_EQ(front.run({"undo"}, later).output, "mineffect: not set -> suck\n");
  EXPECT_EQ(front.run({"undo"}).output, "mineffect: suck -> not set\nsingle-app: true -> not set\n");
}

TEST(Undo, theDockIsKeptBeforeStaticOnlyComesBack) {
  const Front front(Front::Dock::isAbsent);
  front.defaults({"write", "com.apple.dock", "static-only", "-int", "1"});
  front.run({"reset", "static-only"});
  EXPECT_THAT(front.run({"undo"}).errors, HasSubstr("all settings of the Dock are kept in "));
}

TEST(Undo, aMemoryThatIsNotWholeIsRefused) {
  struct Row {
    std::string content;
    std::string complaint;
  };
  const std::vector<Row> rows = {
      {"", "is damaged"},
      {R"({"format":2,"before":{"mineffect":nu)", "is damaged"},
      {"[2]", "is damaged"},
      {R"({"before":{}})", "is damaged"},
      {R"({"format":2})", "is damaged"},
      {R"({"format":3,"before":{}})", "is of format 3; this program reads 2"},
      {R"({"format":2,"before":{"mineffect":"suck"}})", "is damaged"},
      {R"({"format":2,"before":{"mineffect":"<true/><key>a</key><true/>"}})", "is damaged"},
      {R"({"format":2,"before":{"mineffect":1}})", "is damaged"},
      {R"({"format":2,"before":{"tilesize":null}})", "is damaged"},
  };
  const Front front(Front::Dock::isAbsent);
  front.run({"set", "mineffect=suck"});
  for (const Row& row : rows) {
    front.system().folder().write("state/tarnwell/undo.json", row.content);
    const Outcome outcome = front.run({"undo"});
    EXPECT_EQ(outcome.status, 2) << row.content;
    EXPECT_THAT(outcome.errors,
                testing::StartsWith("tarnwell: " + front.stateFolder() + "/undo.json " + row.complaint));
  }
  EXPECT_EQ(front.stored("mineffect"), "string suck");
}

TEST(Undo, theMemoryOfAnOlderVersionIsNotTakenForNone) {
  const Front front(Front::Dock::isAbsent);
  std::filesystem::create_directories(front.stateFolder());
  front.system().folder().write("state/tarnwell/undo.toml", "profile = 1\n[dock]\nmineffect = \"suck\"\n");
  const Outcome outcome = front.run({"undo"});
  EXPECT_EQ(outcome.status, 2);
  EXPECT_EQ(outcome.errors,
            "tarnwell: " + front.stateFolder() + "/undo.toml is of an older format; apply takes it as a profile\n");
  EXPECT_EQ(front.run({"apply", front.stateFolder() + "/undo.toml"}).status, 0);
  EXPECT_EQ(front.run({"undo"}).output, "mineffect: suck -> not set\n");
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
