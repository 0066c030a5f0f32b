#include "system/ChildReaper.h"

#include <gtest/gtest.h>
#include <poll.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <string>

#include "core/ShellTest.h"
#include "fixtures/Processes.h"
#include "fixtures/Subprocess.h"
#include "fixtures/WaitFor.h"

namespace tarnwell::core {
namespace {

using fixtures::exitStatusOf;
using fixtures::openDescriptorCount;
using fixtures::waitFor;
using fixtures::zombieCount;

pid_t forkToExit(int status = 0) {
  const pid_t child = ::fork();
  if (child == 0) {
    ::_exit(status);
  }
  return child;
}

void watchWithoutDescriptors(system::ChildReaper& reaper, pid_t child) {
  rlimit limit = {};
  ::getrlimit(RLIMIT_NOFILE, &limit);
  const rlimit none = {.rlim_cur = 0, .rlim_max = limit.rlim_max};
  ::setrlimit(RLIMIT_NOFILE, &none);
  reaper.watch(system::Process(child));
  ::setrlimit(RLIMIT_NOFILE, &limit);
}

/// How the runner's children leave the system's list.
class ChildReaperTest : public ShellTest {};

TEST_F(ChildReaperTest, theDescriptorTellsWhenAChildHasEnded) {
  EXPECT_FALSE(isReadable());
  runner.runDetached(wait());
  EXPECT_FALSE(isReadable());
  release();
  EXPECT_TRUE(waitFor([this] { return isReadable(); }));
  EXPECT_EQ(zombieCount(), 1);
  runner.reap();
  EXPECT_FALSE(isReadable());
  EXPECT_FALSE(hasChildren());
}

TEST_F(ChildReaperTest, aRunningChildIsLeftAlone) {
  runner.runDetached(wait() + "; : > " + path("ended"));
  runner.reap();
  EXPECT_TRUE(hasChildren());
  release();
  EXPECT_TRUE(waitFor([this] { return sandbox.holds("ended"); }));
}

TEST_F(ChildReaperTest, aBurstIsReapedInSeveralCalls) {
  for (int count = 0; count < 20; ++count) {
    runner.runDetached(":");
  }
  EXPECT_TRUE(waitFor([] { return zombieCount() == 20; }));
  runner.reap();
  EXPECT_GT(zombieCount(), 0);
  EXPECT_TRUE(isReadable());
  runner.reap();
  EXPECT_EQ(zombieCount(), 0);
  EXPECT_FALSE(isReadable());
}

TEST_F(ChildReaperTest, aChildThatIsNotItsOwnIsNotReaped) {
  const pid_t foreign = forkToExit(3);
  runner.runCaptured(":");
  EXPECT_TRUE(waitFor([this] {
    runner.reap();
    return !isReadable() && zombieCount() == 1;
  }));
  int status = 0;
  EXPECT_EQ(::waitpid(foreign, &status, 0), foreign);
  EXPECT_EQ(WEXITSTATUS(status), 3);
}

TEST_F(ChildReaperTest, manyRunsLeaveNoDescriptorAndNoZombie) {
  runner.runCaptured(":");
  EXPECT_TRUE(waitFor([this] { return allReaped(); }));
  const int before = openDescriptorCount();
  for (int count = 0; count < 100; ++count) {
    runner.runCaptured(":");
    runner.runDetached(":");
    runner.reap();
  }
  EXPECT_TRUE(waitFor([this] { return allReaped(); }));
  EXPECT_EQ(openDescriptorCount(), before);
  EXPECT_FALSE(isReadable());
}

TEST_F(ChildReaperTest, anIgnoredChildSignalIsNoTrouble) {
  const auto body = [this] {
    std::signal(SIGCHLD, SIG_IGN);
    for (int count = 0; count < 20; ++count) {
      if (runner.runCaptured("print x") != "x\n") {
        return 1;
      }
      runner.runDetached(":");
    }
    const bool isQuiet = waitFor([this] { return allReaped() && !isReadable(); });
    // What belongs to the whole process is unchanged.
    return isQuiet && std::signal(SIGCHLD, SIG_DFL) == SIG_IGN ? 0 : 2;
  };
  EXPECT_EQ(exitStatusOf(body), 0);
}

TEST_F(ChildReaperTest, aCopyOfTheProcessDoesNotKeepTheEndOfAChildReadable) {
  runner.runDetached(wait());
  const pid_t copy = ::fork();
  while (copy == 0) {
    ::pause();
  }
  release();
  EXPECT_TRUE(waitFor([this] { return isReadable(); }));
  runner.reap();
  EXPECT_FALSE(isReadable());
  EXPECT_EQ(::kill(copy, SIGKILL), 0);
  EXPECT_EQ(::waitpid(copy, nullptr, 0), copy);
}

TEST_F(ChildReaperTest, aChildThatIsAlreadyGoneCountsAsEnded) {
  const pid_t gone = forkToExit();
  EXPECT_EQ(::waitpid(gone, nullptr, 0), gone);
  system::ChildReaper reaper;
  reaper.watch(system::Process(gone));
  reaper.reap();
  pollfd descriptor = {.fd = reaper.descriptor(), .events = POLLIN, .revents = 0};
  EXPECT_EQ(::poll(&descriptor, 1, 0), 0);
}

TEST_F(ChildReaperTest, aChildThatCannotBeWatchedIsReapedAllTheSame) {
  const auto body = [] {
    system::ChildReaper reaper;
    watchWithoutDescriptors(reaper, forkToExit());
    const auto isReaped = [&] {
      reaper.reap();
      return !hasChildren();
    };
    return waitFor(isReaped) ? 0 : 1;
  };
  EXPECT_EQ(exitStatusOf(body), 0);
}

TEST_F(ChildReaperTest, theNextChildsWatchReapsWhatCouldNotBeWatched) {
  const auto body = [] {
    system::ChildReaper reaper;
    const pid_t first = forkToExit();
    watchWithoutDescriptors(reaper, first);
    if (!waitFor([] { return zombieCount() == 1; })) {
      return 1;
    }
    reaper.watch(system::Process(forkToExit()));
    return ::waitpid(first, nullptr, WNOHANG) == -1 ? 0 : 2;
  };
  EXPECT_EQ(exitStatusOf(body), 0);
}

}  // namespace
}  // namespace tarnwell::core
