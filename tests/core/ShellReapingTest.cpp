#include <gtest/gtest.h>
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
using fixtures::hasChildren;
using fixtures::openDescriptorCount;
using fixtures::waitFor;
using fixtures::zombieCount;

/// How the runner's children leave the system's list.
class ShellReapingTest : public ShellTest {};

TEST_F(ShellReapingTest, theDescriptorTellsWhenAChildHasEnded) {
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

TEST_F(ShellReapingTest, aRunningChildIsLeftAlone) {
  runner.runDetached(wait() + "; : > " + path("ended"));
  runner.reap();
  EXPECT_TRUE(hasChildren());
  release();
  EXPECT_TRUE(waitFor([this] { return sandbox.holds("ended"); }));
}

TEST_F(ShellReapingTest, aBurstIsReapedInSeveralCalls) {
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

TEST_F(ShellReapingTest, aChildThatIsNotItsOwnIsNotReaped) {
  const pid_t foreign = ::fork();
  if (foreign == 0) {
    ::_exit(3);
  }
  runner.runCaptured(":");
  EXPECT_TRUE(waitFor([this] {
    runner.reap();
    return !isReadable() && zombieCount() == 1;
  }));
  int status = 0;
  EXPECT_EQ(::waitpid(foreign, &status, 0), foreign);
  EXPECT_EQ(WEXITSTATUS(status), 3);
}

TEST_F(ShellReapingTest, manyRunsLeaveNoDescriptorAndNoZombie) {
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

TEST_F(ShellReapingTest, anIgnoredChildSignalIsNoTrouble) {
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

TEST_F(ShellReapingTest, aCopyOfTheProcessDoesNotKeepTheEndOfAChildReadable) {
  runner.runDetached(wait());
  const pid_t copy = ::fork();
  if (copy == 0) {
    for (;;) {
      ::pause();
    }
  }
  release();
  EXPECT_TRUE(waitFor([this] { return isReadable(); }));
  runner.reap();
  EXPECT_FALSE(isReadable());
  EXPECT_EQ(::kill(copy, SIGKILL), 0);
  EXPECT_EQ(::waitpid(copy, nullptr, 0), copy);
}

}  // namespace
}  // namespace tarnwell::core
