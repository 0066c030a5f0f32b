#include <gtest/gtest.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <string>

#include "fixtures/Subprocess.h"
#include "fixtures/WaitFor.h"
#include "system/processes/Pipe.h"
#include "system/processes/Process.h"

namespace tarnwell::system {
namespace {

/// Of a shell whose session ends with this process.
Launch guarded(const std::string& text) {
  return {.words = {"sh", "-c", text}, .hasOwnSession = true, .endsWithStarter = true};
}

TEST(GuardedProcessTest, itsGuardIsNoChildOfIts) {
  const auto process = [] {
    return Process::start(guarded("read -r children < /proc/$$/task/$$/children; test -z \"$children\""));
  };
  EXPECT_TRUE(process()->wait().isSuccess());
}

TEST(GuardedProcessTest, itsGuardHoldsNothingOfWhatItWasGiven) {
  Pipe input = Pipe::create();
  Pipe output = Pipe::create();
  Launch launch = guarded("exec <&- >&- 2>&- sleep 600");
  launch.input = input.readEnd.number();
  launch.output = output.writeEnd.number();
  launch.errors = output.writeEnd.number();
  auto process = Process::start(launch);
  ASSERT_TRUE(process);
  input.readEnd.close();
  output.writeEnd.close();
  EXPECT_TRUE(output.readEnd.waitUntilReadable(std::chrono::steady_clock::now() + std::chrono::minutes(1)));
  EXPECT_TRUE(fixtures::waitFor([&input] {
    pollfd state = {.fd = input.writeEnd.number(), .events = 0, .revents = 0};
    return ::poll(&state, 1, 0) == 1;
  }));
  process->send(SIGKILL);
  process->wait();
}

TEST(GuardedProcessTest, itsSessionEndsWithItsStarterThoughItSignalledAllOfItsGroup) {
  Pipe held = Pipe::create();
  Process starter(::fork());
  if (starter.number() == 0) {
    Launch launch = guarded("trap '' TERM; kill -TERM 0; sleep 600 & echo begun; wait");
    launch.output = held.writeEnd.number();
    auto process = Process::start(launch);
    ::_exit(process && process->wait().isSuccess() ? 0 : 1);
  }
  held.writeEnd.close();
  EXPECT_EQ(held.readEnd.readPart(), "begun\n");
  starter.send(SIGKILL);
  EXPECT_EQ(held.readEnd.readAll(), "");
  starter.wait();
}

TEST(GuardedProcessTest, whatItLeavesBehindLivesOnWithItsStarter) {
  const int status = fixtures::exitStatusOf([] {
    // What loses its parent becomes our child: the guard, and what is left behind.
    ::prctl(PR_SET_CHILD_SUBREAPER, 1);
    Pipe told = Pipe::create();
    Launch launch = guarded("sleep 600 >&2 & echo $!");
    launch.output = told.writeEnd.number();
    auto process = Process::start(launch);
    told.writeEnd.close();
    const int left = std::stoi(told.readEnd.readAll().value_or("0"));
    if (!process || !process->wait().isSuccess() || ::wait(nullptr) == left) {
      return 1;
    }
    const bool isAlive = ::waitpid(left, nullptr, WNOHANG) == 0;
    Process(left).send(SIGKILL);
    return isAlive ? 0 : 2;
  });
  EXPECT_EQ(status, 0);
}

}  // namespace
}  // namespace tarnwell::system
