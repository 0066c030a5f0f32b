#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <sstream>

#include "fixtures/WaitFor.h"
#include "standin/MacSystem.h"
#include "system/processes/Pipe.h"
#include "system/processes/Process.h"

namespace tarnwell::standin {
namespace {

using fixtures::waitFor;
using testing::HasSubstr;

// The processes of the Docks that have written to the log, oldest first.
std::vector<pid_t> loggedDocks(const MacSystem& system) {
  std::vector<pid_t> docks;
  std::istringstream log(fileContent(system.dockLog()));
  for (std::string line; std::getline(log, line);) {
    docks.push_back(std::stoi(line.substr(line.find('[') + 1)));
  }
  return docks;
}

pid_t waitForDock(const MacSystem& system, std::size_t count) {
  EXPECT_TRUE(waitFor([&] { return loggedDocks(system).size() >= count; }));
  const std::vector<pid_t> docks = loggedDocks(system);
  return docks.empty() ? -1 : docks.back();
}

std::string childrenOf(pid_t process) {
  const std::string id = std::to_string(process);
  return fileContent("/proc/" + id + "/task/" + id + "/children");
}

TEST(SupervisorTest, aDockThatIsKilledSevenTimesComesBackSevenTimes) {
  const MacSystem system;
  const Process supervisor({SUPERVISOR_PATH}, system.environment());
  const auto begin = std::chrono::steady_clock::now();
  for (std::size_t kills = 1; kills <= 7; ++kills) {
    ::kill(waitForDock(system, kills), kills % 2 == 0 ? SIGKILL : SIGTERM);
  }
  const pid_t last = waitForDock(system, 8);
  EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(5));
  // The only child is the living Dock: none of the seven has become a zombie.
  EXPECT_EQ(childrenOf(supervisor.id()), std::to_string(last) + " ");
  EXPECT_TRUE(isRunning(last));
}

TEST(SupervisorTest, theNewDockHasReadWhatWasWrittenBeforeTheKill) {
  const MacSystem system;
  const Process supervisor({SUPERVISOR_PATH}, system.environment());
  const pid_t first = waitForDock(system, 1);
  system.defaults({"write", "com.apple.dock", "mineffect", "suck"});
  ::kill(first, SIGTERM);
  waitForDock(system, 2);
  EXPECT_THAT(fileContent(system.dockLog()), HasSubstr(" mineffect=suck "));
}

TEST(SupervisorTest, everyEndOfTheSupervisorEndsTheDock) {
  for (const int signal : {SIGTERM, SIGINT, SIGHUP, SIGKILL}) {
    const MacSystem system;
    Process supervisor({SUPERVISOR_PATH}, system.environment());
    const pid_t dock = waitForDock(system, 1);
    supervisor.send(signal);
    const Outcome outcome = supervisor.wait();
    EXPECT_EQ(outcome.status, signal == SIGKILL ? -1 : 0);
    EXPECT_TRUE(waitFor([&] { return !isRunning(dock); })) << signal;
  }
}

TEST(SupervisorTest, aSecondSupervisorOfTheSameRootRefuses) {
  const MacSystem system;
  const Process first({SUPERVISOR_PATH}, system.environment());
  waitForDock(system, 1);
  const Outcome second = run({SUPERVISOR_PATH}, system.environment());
  EXPECT_EQ(second.status, 1);
  EXPECT_THAT(second.errors, HasSubstr("another one is already running for " + system.root()));
}

TEST(SupervisorTest, aNewSupervisorStartsAfterTheOldOneWasKilled) {
  const MacSystem system;
  Process first({SUPERVISOR_PATH}, system.environment());
  waitForDock(system, 1);
  first.send(SIGKILL);
  first.wait();
  const Process second({SUPERVISOR_PATH}, system.environment());
  EXPECT_TRUE(isRunning(waitForDock(system, 2)));
}

TEST(SupervisorTest, isNotFoundByTheNameOfTheDock) {
  const MacSystem system;
  const Process supervisor({SUPERVISOR_PATH}, system.environment());
  waitForDock(system, 1);
  EXPECT_EQ(fileContent("/proc/" + std::to_string(supervisor.id()) + "/comm"), "dock-supervisor\n");
}

// A supervisor beside a Dock that the test makes of a shell text.
std::string supervisorWithDock(const MacSystem& system, const std::string& text) {
  std::string supervisor = (system.folder() / "dock-supervisor").string();
  std::filesystem::copy_file(SUPERVISOR_PATH, supervisor);
  system.folder().write("Dock", "#!/bin/sh\n" + text + "\n");
  std::filesystem::permissions(system.folder() / "Dock", std::filesystem::perms::owner_all);
  return supervisor;
}

TEST(SupervisorTest, aDockThatFailsAtOnceIsStartedMoreAndMoreSlowly) {
  const MacSystem system;
  const std::string log = (system.folder() / "starts").string();
  const std::string path = supervisorWithDock(system, "echo x >>" + log + "; exit 3");
  const auto begin = std::chrono::steady_clock::now();
  Process supervisor({path}, system.environment());
  EXPECT_TRUE(waitFor([&] { return fileContent(log).size() >= 10; }));
  EXPECT_GE(std::chrono::steady_clock::now() - begin, std::chrono::milliseconds(1500));
  // It ends at once although it has 1600 ms to wait.
  const auto end = std::chrono::steady_clock::now();
  supervisor.send(SIGTERM);
  EXPECT_EQ(supervisor.wait().status, 0);
  EXPECT_LT(std::chrono::steady_clock::now() - end, std::chrono::milliseconds(1500));
}

// The shell is started with the signal blocked, and never lets it through.
TEST(SupervisorTest, aDockThatDoesNotEndHasTwoSecondsToDoSo) {
  const MacSystem system;
  const std::string log = (system.folder() / "starts").string();
  const std::string path = supervisorWithDock(system, "echo $$ >" + log + "; exec sleep 600");
  Process supervisor({path}, system.environment());
  EXPECT_TRUE(waitFor([&] { return fileContent(log).ends_with('\n'); }));
  const auto begin = std::chrono::steady_clock::now();
  supervisor.send(SIGTERM);
  EXPECT_EQ(supervisor.wait().status, 0);
  EXPECT_GE(std::chrono::steady_clock::now() - begin, std::chrono::seconds(2));
  EXPECT_FALSE(isRunning(std::stoi(fileContent(log))));
}

TEST(SupervisorTest, aMissingDockIsReported) {
  const MacSystem system;
  const std::string path = supervisorWithDock(system, "");
  std::filesystem::remove(system.folder() / "Dock");
  const Process supervisor({path}, system.environment());
  EXPECT_TRUE(waitFor([&] { return supervisor.errors().find("cannot start") != std::string::npos; }));
}

TEST(SupervisorTest, keepsNothingOpenOfItsStarters) {
  const MacSystem system;
  system::Pipe pipe = system::Pipe::create();
  auto supervisor = system::Process::start(
      {.words = {SUPERVISOR_PATH}, .environment = system.environment(), .extra = pipe.writeEnd.number()});
  ASSERT_TRUE(supervisor);
  pipe.writeEnd.close();
  EXPECT_TRUE(pipe.readEnd.waitUntilReadable(std::chrono::steady_clock::now() + std::chrono::seconds(20)));
  EXPECT_TRUE(isRunning(waitForDock(system, 1)));
  supervisor->send(SIGTERM);
  EXPECT_TRUE(supervisor->wait().isSuccess());
}

TEST(SupervisorTest, answersItsCommandLine) {
  EXPECT_EQ(run({SUPERVISOR_PATH, "--help"}, {}).status, 0);
  const Outcome unknown = run({SUPERVISOR_PATH, "--frobnicate"}, {});
  EXPECT_EQ(unknown.status, 2);
  EXPECT_THAT(unknown.errors, HasSubstr("unknown argument --frobnicate"));
  EXPECT_EQ(run({SUPERVISOR_PATH}, {}).status, 1);
}

}  // namespace
}  // namespace tarnwell::standin
