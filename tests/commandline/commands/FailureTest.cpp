// What goes wrong below the command line.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <filesystem>

#include "commandline/Front.h"
#include "fixtures/WaitFor.h"
#include "system/files/FileLock.h"

namespace tarnwell::commandline {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

TEST(Failure, aStoreThatCannotBeReadIsLeftAsItIs) {
  const Front front;
  ASSERT_EQ(front.run({"set", "--no-restart", "mineffect=scale"}).status, 0) << "which undo takes back";
  front.system().store("nonsense");
  front.system().folder().write("dock.toml", "profile = 1\n[dock]\nmineffect = \"suck\"\n");
  const std::string profile = front.file("dock.toml");
  for (const Words& words : {Words{"list"}, Words{"get", "mineffect"}, Words{"set", "mineffect=suck"},
                             Words{"reset", "--all"}, Words{"export"}, Words{"apply", profile},
                             Words{"apply", "--check", profile}, Words{"diff", profile}, Words{"undo"}}) {
    const Outcome outcome = front.run(words);
    EXPECT_EQ(outcome.status, 3) << words.front();
    EXPECT_THAT(outcome.errors,
                StartsWith("tarnwell: The settings cannot be read: Could not read domain com.apple.dock"));
    EXPECT_EQ(outcome.output, "");
  }
  EXPECT_EQ(standin::fileContent(front.system().dockStore()), "nonsense");
  EXPECT_EQ(front.starts(), 1);
}

// It may force what is then shown as the user's.
TEST(Failure, whatAProfileForcesAndCannotBeReadIsNotTakenForNothing) {
  const Front front(Front::Dock::isAbsent);
  front.shell(R"sh(managed="/Library/Managed Preferences/$(id -un)"
      "$D" write "$managed/com.apple.dock" mineffect genie
      echo nonsense >"$MACOS_ROOT$managed/com.apple.dock.plist")sh");
  const std::string complaint = "tarnwell: What a configuration profile forces cannot be read: Could not read domain ";
  const Outcome list = front.run({"list"});
  EXPECT_EQ(list.status, 3);
  EXPECT_EQ(list.output, "");
  EXPECT_THAT(list.errors, StartsWith(complaint));
  const Outcome set = front.run({"set", "mineffect=suck"});
  EXPECT_EQ(set.status, 0);
  EXPECT_THAT(set.errors, StartsWith(complaint));
  EXPECT_EQ(front.stored("mineffect"), "string suck");
}

// As a tool may say it where no profile is installed.
TEST(Failure, aDomainThatDoesNotExistForcesNothing) {
  Front front(Front::Dock::isAbsent);
  front.run({"set", "-q", "mineffect=suck"});
  front.replaceTool("defaults", R"sh(case $2 in
  /Library*) printf '2026-11-22 10:55:48.932 defaults[7:7] \nDomain %s does not exist\n' "$2" >&2 && exit 1 ;;
esac
exec "$REAL" "$@")sh");
  const Outcome list = front.run({"list"});
  EXPECT_EQ(list.status, 0);
  EXPECT_EQ(list.errors, "");
  EXPECT_THAT(list.output, HasSubstr("mineffect                suck\n"));
  EXPECT_THAT(front.run({"set", "mineffect=scale"}).errors, testing::Not(HasSubstr("forces")));
}

TEST(Failure, aChangeThatUndoWillNotKnowOfIsOne) {
  const Front front;
  std::filesystem::create_directories(front.stateFolder() + "/undo.json");
  const Outcome outcome = front.run({"set", "mineffect=suck"});
  EXPECT_EQ(outcome.status, 3);
  EXPECT_EQ(outcome.errors, "tarnwell: cannot replace " + front.stateFolder() +
                                "/undo.json: Is a directory; undo does not know of this change\n");
  EXPECT_EQ(outcome.output, "mineffect: not set -> suck\n");
  EXPECT_EQ(front.stored("mineffect"), "string suck");
  EXPECT_EQ(front.starts(), 2) << "the Dock goes by what is written";
}

// Files may have 1024 bytes: what is stored is short of that by less than two settings need.
TEST(Failure, aWriteThatFailsSaysWhatDidGetThrough) {
  const Front front;
  front.defaults({"write", "com.apple.dock", "filling", "-string", std::string(932, 'x')});
  ASSERT_LT(std::filesystem::file_size(front.system().dockStore()), 1024);
  const Outcome outcome = front.shell("prlimit --fsize=1024 \"$T\" set mineffect=suck showhidden=on static-only=off");
  EXPECT_EQ(outcome.status, 3);
  EXPECT_EQ(outcome.errors,
            "tarnwell: The settings cannot be written: Could not write domain com.apple.dock; exiting; cannot write " +
                front.system().dockStore() + ": File too large; written so far: mineffect\n");
  EXPECT_EQ(outcome.output, "");
  EXPECT_EQ(front.stored("static-only"), "");
  EXPECT_EQ(front.starts(), 2) << "the Dock goes by what is written";
  EXPECT_EQ(front.run({"undo"}).output, "mineffect: suck -> not set\n");
}

TEST(Failure, aWriteThatWritesNothingRestartsNothing) {
  Front front;
  front.run({"set", "mineffect=scale"});
  front.replaceTool("defaults", "[ \"$1\" != write ] || exit 7\nexec \"$REAL\" \"$@\"");
  const Outcome outcome = front.run({"set", "mineffect=suck"});
  EXPECT_EQ(outcome.status, 3);
  EXPECT_EQ(outcome.errors, "tarnwell: The settings cannot be written: ended with status 7\n");
  EXPECT_EQ(front.starts(), 2);
  front.replaceTool("defaults", R"(exec "$REAL" "$@")");
  EXPECT_EQ(front.run({"undo"}).output, "mineffect: scale -> not set\n") << "what was remembered before still is";
}

TEST(Failure, aToolThatHangsIsEnded) {
  Front front;
  front.replaceTool("defaults", "sleep 600");
  const auto begin = std::chrono::steady_clock::now();
  const Outcome outcome = front.run({"list"});
  EXPECT_EQ(outcome.status, 3);
  EXPECT_EQ(outcome.errors, "tarnwell: The settings cannot be read: no answer within 10 seconds\n");
  EXPECT_GE(std::chrono::steady_clock::now() - begin, std::chrono::seconds(10));
  EXPECT_EQ(front.starts(), 1);
}

TEST(Failure, aWriteThatHangsIsEnded) {
  const Front front;
  front.run({"set", "--no-restart", "mineffect=genie"});
  const auto held = system::FileLock::take(front.system().preferences() + "/.defaults.lock", {});
  ASSERT_TRUE(held) << held.error().message;
  const auto begin = std::chrono::steady_clock::now();
  const Outcome outcome = front.run({"set", "mineffect=suck", "showhidden=on"});
  EXPECT_EQ(outcome.status, 3);
  EXPECT_EQ(outcome.errors, "tarnwell: The settings cannot be written: no answer within 10 seconds\n");
  EXPECT_EQ(outcome.output, "");
  EXPECT_GE(std::chrono::steady_clock::now() - begin, std::chrono::seconds(10));
  EXPECT_EQ(front.stored("mineffect"), "string genie");
  EXPECT_EQ(front.starts(), 1);
}

// The tool puts its number into a file before it hangs.
constexpr const char* hang =
    "echo $$ >\"$MACOS_ROOT/new\"; mv \"$MACOS_ROOT/new\" \"$MACOS_ROOT/number\"\nexec sleep 600";

void expectToolToEndWith(const Front& front, const Words& words, int signal) {
  const auto process = front.start(words);
  std::string number;
  ASSERT_TRUE(fixtures::waitFor([&] { return !(number = standin::fileContent(front.file("root/number"))).empty(); }));
  process->send(signal);
  EXPECT_EQ(process->wait().signal, signal);
  EXPECT_TRUE(fixtures::waitFor([&] { return !standin::isRunning(std::stoi(number)); }));
  EXPECT_EQ(front.starts(), 1);
}

TEST(Failure, aToolThatHangsEndsWithTheFront) {
  for (const int signal : {SIGINT, SIGTERM, SIGKILL}) {
    Front front;
    front.replaceTool("defaults", hang);
    expectToolToEndWith(front, {"list"}, signal);
  }
}

TEST(Failure, theFirstOfManyWritesThatHangsEndsWithTheFront) {
  Front front;
  front.replaceTool("defaults", std::string("[ \"$1\" = write ] || exec \"$REAL\" \"$@\"\n") + hang);
  expectToolToEndWith(front, {"set", "mineffect=suck", "showhidden=on"}, SIGKILL);
}

TEST(Failure, aDockThatDoesNotComeBackIsReported) {
  const Front front(Front::Dock::isTheLast);
  const auto begin = std::chrono::steady_clock::now();
  const Outcome outcome = front.run({"set", "mineffect=suck"});
  EXPECT_EQ(outcome.status, 4);
  EXPECT_EQ(outcome.errors,
            "tarnwell: The Dock has not come back. Log in again, or run: launchctl kickstart "
            "gui/$UID/com.apple.Dock.agent\n");
  EXPECT_EQ(outcome.output, "mineffect: not set -> suck\n");
  EXPECT_GE(std::chrono::steady_clock::now() - begin, std::chrono::seconds(5));
  EXPECT_EQ(front.stored("mineffect"), "string suck");
  EXPECT_EQ(front.starts(), 1);
}

TEST(Failure, aToolThatFailsIsNoAbsentDock) {
  Front front;
  front.replaceTool("killall", "exit 127");
  EXPECT_EQ(front.run({"restart"}).status, 4);
  EXPECT_EQ(front.starts(), 1);
}

TEST(Failure, withoutTheStandInsNothingIsRead) {
  Front front(Front::Dock::isAbsent);
  front.replaceTool("defaults", "");
  std::filesystem::remove_all(front.file("own/libexec"));
  const Outcome outcome = front.run({"list"});
  EXPECT_EQ(outcome.status, 3);
  EXPECT_THAT(outcome.errors, HasSubstr("no program defaults in "));
}

}  // namespace
}  // namespace tarnwell::commandline
