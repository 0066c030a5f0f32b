#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <filesystem>
#include <list>
#include <string>

#include "fixtures/DockCommands.h"
#include "fixtures/WaitFor.h"
#include "standin/MacSystem.h"

namespace tarnwell::standin {
namespace {

using fixtures::waitFor;
using testing::EndsWith;
using testing::HasSubstr;

constexpr const char* noProcess = "No matching processes belonging to you were found\n";

std::ptrdiff_t starts(const MacSystem& system) {
  const std::string log = fileContent(system.dockLog());
  return std::count(log.begin(), log.end(), '\n');
}

bool waitForStarts(const MacSystem& system, std::ptrdiff_t count) {
  return waitFor([&] { return starts(system) >= count; });
}

Outcome killDock(const MacSystem& system) { return run({KILLALL_PATH, "Dock"}, system.environment()); }

TEST(KillallTest, everyOneOfManyAtOnceRestartsTheDock) {
  const MacSystem system;
  const Process supervisor({SUPERVISOR_PATH}, system.environment());
  ASSERT_TRUE(waitForStarts(system, 1));
  constexpr int rounds = 50;
  constexpr int kills = 7;
  for (int round = 1; round <= rounds; ++round) {
    std::list<Process> killers;
    for (int i = 0; i < kills; ++i) {
      killers.emplace_back(Words{KILLALL_PATH, "Dock"}, system.environment());
    }
    for (Process& killer : killers) {
      const Outcome outcome = killer.wait();
      ASSERT_EQ(outcome.status, 0) << outcome.errors << " in round " << round;
    }
    ASSERT_TRUE(waitForStarts(system, 1 + kills * round));
    ASSERT_EQ(starts(system), 1 + kills * round) << "in round " << round;
  }
}

TEST(KillallTest, theLastDockHasReadWhatEveryoneHasWritten) {
  const MacSystem system;
  const Process supervisor({SUPERVISOR_PATH}, system.environment());
  ASSERT_TRUE(waitForStarts(system, 1));
  std::string line = std::string(R"(defaults() { "$D" "$@"; }; killall() { )") + KILLALL_PATH + R"( "$@"; }; )";
  std::string settings;
  const fixtures::Commands saved = fixtures::savedCommands();
  for (const std::string& command : saved) {
    line += "{ " + command + "; } & ";
  }
  for (const auto& [key, value] : fixtures::outcomeOf(saved)) {
    settings += " " + key + "=" + value;
  }
  EXPECT_EQ(system.shell(line + "wait").status, 0);
  const int expected = 1 + static_cast<int>(saved.size());
  EXPECT_TRUE(waitForStarts(system, expected));
  EXPECT_THAT(fileContent(system.dockLog()), EndsWith(settings + "\n"));
  EXPECT_EQ(starts(system), expected);
}

TEST(KillallTest, waitsForADockThatIsAboutToComeBack) {
  const MacSystem system;
  const Process supervisor({SUPERVISOR_PATH}, system.environment());
  ASSERT_TRUE(waitForStarts(system, 1));
  // Another process has just ended it.
  const std::string log = fileContent(system.dockLog());
  ::kill(std::stoi(log.substr(log.find("Dock[") + 5)), SIGKILL);
  EXPECT_EQ(killDock(system).status, 0);
}

TEST(KillallTest, saysSoWhereThereIsNone) {
  const MacSystem system;
  std::filesystem::create_directory(system.root());
  const auto begin = std::chrono::steady_clock::now();
  const Outcome outcome = killDock(system);
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.errors, noProcess);
  // No supervisor would start one, so that there is nothing to wait for.
  EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(1));
}

TEST(KillallTest, givesUpOnADockThatDoesNotComeBack) {
  const MacSystem system;
  const std::string supervisorPath = (system.folder() / "dock-supervisor").string();
  std::filesystem::copy_file(SUPERVISOR_PATH, supervisorPath);
  std::filesystem::create_directories(system.root() + "/Library/Logs");
  const Process supervisor({supervisorPath}, system.environment());
  EXPECT_TRUE(waitFor([&] { return supervisor.errors().find("cannot start") != std::string::npos; }));
  const auto begin = std::chrono::steady_clock::now();
  const Outcome outcome = killDock(system);
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.errors, noProcess);
  EXPECT_GE(std::chrono::steady_clock::now() - begin, std::chrono::seconds(2));
}

TEST(KillallTest, leavesTheDocksOfOtherSystemsAlone) {
  const MacSystem mine;
  const MacSystem other;
  Process ended({DOCK_PATH}, mine.environment());
  const Process left({DOCK_PATH}, other.environment());
  ASSERT_TRUE(waitForStarts(mine, 1));
  ASSERT_TRUE(waitForStarts(other, 1));
  EXPECT_EQ(killDock(mine).status, 0);
  EXPECT_EQ(ended.wait().signal, SIGTERM);
  EXPECT_TRUE(isRunning(left.id()));
}

TEST(KillallTest, knowsASystemByItsFolderHoweverItIsNamed) {
  const MacSystem system;
  std::filesystem::create_directory(system.root());
  const Words relative = {"MACOS_ROOT=root", "PATH=/usr/bin:/bin"};
  const std::string text = "cd '" + system.folder().path().string() + "'; exec " + DOCK_PATH;
  Process dock({"/bin/sh", "-c", text}, relative);
  ASSERT_TRUE(waitForStarts(system, 1));
  EXPECT_EQ(killDock(system).status, 0);
  EXPECT_EQ(dock.wait().signal, SIGTERM);
}

TEST(KillallTest, endsProgramsOfOtherNamesAsWell) {
  const MacSystem system;
  std::filesystem::create_directory(system.root());
  // The kernel cuts the name.
  const std::string path = (system.folder() / "A-long-name-for-a-program").string();
  std::filesystem::copy_file("/bin/sleep", path);
  Process program({path, "600"}, system.environment());
  EXPECT_TRUE(
      waitFor([&] { return fileContent("/proc/" + std::to_string(program.id()) + "/comm") == "A-long-name-for\n"; }));
  const Outcome outcome = run({KILLALL_PATH, "A-long-name-for-a-program", "Nobody"}, system.environment());
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.errors, noProcess);
  EXPECT_EQ(program.wait().signal, SIGTERM);
}

TEST(KillallTest, showsWhatItWouldEnd) {
  const MacSystem system;
  const Words show = {KILLALL_PATH, "-s", "Dock"};
  EXPECT_EQ(run(show, system.environment()).errors, noProcess);
  const Process dock({DOCK_PATH}, system.environment());
  ASSERT_TRUE(waitForStarts(system, 1));
  const Outcome outcome = run(show, system.environment());
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.output, "kill -TERM " + std::to_string(dock.id()) + "\n");
  EXPECT_TRUE(isRunning(dock.id()));
}

TEST(KillallTest, saysNothingOfNoneWhereItIsToBeQuiet) {
  const MacSystem system;
  const Outcome outcome = run({KILLALL_PATH, "-q", "Dock"}, system.environment());
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.errors, "");
}

TEST(KillallTest, endsThoseOfTheUserThatIsNamed) {
  const MacSystem system;
  std::string user = run({"/usr/bin/id", "-un"}, {}).output;
  user.pop_back();
  const std::string other = user == "nobody" ? "root" : "nobody";
  Process dock({DOCK_PATH}, system.environment());
  ASSERT_TRUE(waitForStarts(system, 1));
  EXPECT_EQ(run({KILLALL_PATH, "-u", other, "Dock"}, system.environment()).errors, noProcess);
  EXPECT_EQ(run({KILLALL_PATH, "-u", "no such user", "Dock"}, system.environment()).errors,
            "killall: user no such user does not exist\n");
  EXPECT_TRUE(isRunning(dock.id()));
  EXPECT_EQ(run({KILLALL_PATH, "-qu", user, "Dock"}, system.environment()).status, 0);
  EXPECT_EQ(dock.wait().signal, SIGTERM);
}

TEST(KillallTest, answersItsCommandLine) {
  EXPECT_THAT(run({KILLALL_PATH, "--help"}, {}).output, HasSubstr("Usage: killall"));
  for (const Words& wrong : {Words{}, Words{"-9", "Dock"}, Words{"-s"}, Words{"-", "Dock"}, Words{"-u"},
                             Words{"-u", "nobody"}, Words{"-sx", "Dock"}, Words{"-uq", "Dock"}}) {
    Words command = {KILLALL_PATH};
    command.insert(command.end(), wrong.begin(), wrong.end());
    const Outcome outcome = run(command, {});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.errors, HasSubstr("Usage: killall"));
  }
  EXPECT_THAT(run({KILLALL_PATH, "Dock"}, {}).errors, HasSubstr("None of MACOS_ROOT"));
}

}  // namespace
}  // namespace tarnwell::standin
