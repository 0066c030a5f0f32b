#include "system/processes/ChildReaper.h"

#include <gtest/gtest.h>
#include <poll.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <utility>
#include <vector>

#include "fixtures/Processes.h"
#include "fixtures/Subprocess.h"
#include "fixtures/WaitFor.h"

namespace tarnwell::system {
namespace {

using fixtures::exitStatusOf;
using fixtures::hasChildren;
using fixtures::waitFor;
using fixtures::zombieCount;

pid_t forkToExit() {
  const pid_t child = ::fork();
  if (child == 0) {
    ::_exit(0);
  }
  return child;
}

void watchWithoutDescriptors(ChildReaper& reaper, pid_t child) {
  rlimit limit = {};
  ::getrlimit(RLIMIT_NOFILE, &limit);
  const rlimit none = {.rlim_cur = 0, .rlim_max = limit.rlim_max};
  ::setrlimit(RLIMIT_NOFILE, &none);
  reaper.watch(Process(child));
  ::setrlimit(RLIMIT_NOFILE, &limit);
}

bool isReadable(const ChildReaper& reaper) { return reaper.waitForEnd(std::chrono::steady_clock::now()); }

TEST(ChildReaperTest, tellsOnceHowEachChildEnded) {
  ChildReaper reaper;
  std::vector<int> ends;
  const auto add = [&ends](const ProcessEnd& end) { ends.push_back(end.number); };
  reaper.watch(*Process::start({.words = {"sh", "-c", "exit 3"}}), add);
  Process living = *Process::start({.words = {"sleep", "600"}});
  const pid_t number = living.number();
  reaper.watch(std::move(living), add);
  EXPECT_TRUE(reaper.waitForEnd(std::chrono::steady_clock::now() + std::chrono::minutes(1)));
  reaper.reap();
  reaper.reap();
  EXPECT_EQ(ends, std::vector{3});
  EXPECT_FALSE(reaper.isIdle());
  EXPECT_FALSE(isReadable(reaper));
  ::kill(number, SIGKILL);
  EXPECT_TRUE(reaper.waitForEnd(std::chrono::steady_clock::now() + std::chrono::minutes(1)));
  reaper.reap();
  EXPECT_EQ(ends, (std::vector{3, SIGKILL}));
  EXPECT_TRUE(reaper.isIdle());
}

// As it has what was open in this process when it was made, until it is another program.
TEST(ChildReaperTest, aCopyOfThisProcessKeepsNoEndThatWasSeen) {
  ChildReaper reaper;
  Process ending = *Process::start({.words = {"sleep", "600"}});
  const pid_t number = ending.number();
  reaper.watch(std::move(ending));
  Process copy(::fork());
  if (copy.number() == 0) {
    for (;;) {
      ::pause();
    }
  }
  ::kill(number, SIGKILL);
  EXPECT_TRUE(reaper.waitForEnd(std::chrono::steady_clock::now() + std::chrono::minutes(1)));
  reaper.reap();
  EXPECT_FALSE(isReadable(reaper));
  copy.send(SIGKILL);
  copy.wait();
}

TEST(ChildReaperTest, aChildThatIsAlreadyGoneCountsAsEnded) {
  const pid_t gone = forkToExit();
  EXPECT_EQ(::waitpid(gone, nullptr, 0), gone);
  ChildReaper reaper;
  reaper.watch(Process(gone));
  reaper.reap();
  pollfd descriptor = {.fd = reaper.descriptor(), .events = POLLIN, .revents = 0};
  EXPECT_EQ(::poll(&descriptor, 1, 0), 0);
}

TEST(ChildReaperTest, aChildThatCannotBeWatchedIsReapedAllTheSame) {
  const auto body = [] {
    ChildReaper reaper;
    watchWithoutDescriptors(reaper, forkToExit());
    const auto isReaped = [&] {
      reaper.reap();
      return !hasChildren();
    };
    return waitFor(isReaped) ? 0 : 1;
  };
  EXPECT_EQ(exitStatusOf(body), 0);
}

TEST(ChildReaperTest, theNextChildsWatchReapsWhatCouldNotBeWatched) {
  const auto body = [] {
    ChildReaper reaper;
    const pid_t first = forkToExit();
    watchWithoutDescriptors(reaper, first);
    if (!waitFor([] { return zombieCount() == 1; })) {
      return 1;
    }
    reaper.watch(Process(forkToExit()));
    return ::waitpid(first, nullptr, WNOHANG) == -1 ? 0 : 2;
  };
  EXPECT_EQ(exitStatusOf(body), 0);
}

}  // namespace
}  // namespace tarnwell::system
