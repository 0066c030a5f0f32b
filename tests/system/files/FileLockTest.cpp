#include "system/files/FileLock.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <csignal>
#include <ctime>
#include <filesystem>
#include <optional>

#include "fixtures/Processes.h"
#include "fixtures/Sandbox.h"
#include "fixtures/WaitFor.h"
#include "system/processes/Pipe.h"
#include "system/processes/Process.h"

namespace tarnwell::system {
namespace {

using std::chrono::milliseconds;
using Clock = std::chrono::steady_clock;

TEST(FileLockTest, keepsOthersAwayAsLongAsItLives) {
  const fixtures::Sandbox sandbox;
  const auto path = sandbox / "lock";
  std::optional first = FileLock::take(path, {});
  ASSERT_TRUE(*first);
  const auto second = FileLock::take(path, {});
  ASSERT_FALSE(second);
  EXPECT_EQ(second.error().error, EWOULDBLOCK);
  EXPECT_TRUE(second.error().message.starts_with("cannot lock " + path.string() + ": ")) << second.error().message;
  first.reset();
  EXPECT_TRUE(FileLock::take(path, FileLock::unlimited));
}

TEST(FileLockTest, isWaitedForAsLongAsAsked) {
  const fixtures::Sandbox sandbox;
  const auto lock = FileLock::takeFolder(sandbox.path(), {});
  ASSERT_TRUE(lock);
  const auto begin = Clock::now();
  const std::clock_t worked = std::clock();
  EXPECT_FALSE(FileLock::takeFolder(sandbox.path(), milliseconds(50)));
  EXPECT_GE(Clock::now() - begin, milliseconds(50));
  EXPECT_LT(std::clock() - worked, CLOCKS_PER_SEC / 40) << "it rests meanwhile";
  EXPECT_TRUE(std::filesystem::is_empty(sandbox.path()));
}

int interruptions = -1;

TEST(FileLockTest, isWaitedForThroughAnInterruption) {
  const fixtures::Sandbox sandbox;
  std::optional lock = FileLock::takeFolder(sandbox.path(), {});
  ASSERT_TRUE(*lock);
  Pipe told = Pipe::create();
  Process waiting(::fork());
  if (waiting.number() == 0) {
    // Its own copy of the lock would stay.
    lock.reset();
    interruptions = told.writeEnd.number();
    struct sigaction interrupts = {};
    interrupts.sa_handler = [](int) { (void)::write(interruptions, "!", 1); };
    ::sigaction(SIGUSR1, &interrupts, nullptr);
    (void)told.writeEnd.writeAll("?");
    ::_exit(FileLock::takeFolder(sandbox.path(), FileLock::unlimited) ? 0 : 1);
  }
  const auto isWaiting = [&waiting] { return fixtures::isAsleep(waiting.number()); };
  EXPECT_EQ(told.readEnd.readPart(), "?");
  EXPECT_TRUE(fixtures::waitFor(isWaiting));
  waiting.send(SIGUSR1);
  EXPECT_EQ(told.readEnd.readPart(), "!");
  EXPECT_TRUE(fixtures::waitFor(isWaiting));
  lock.reset();
  EXPECT_TRUE(waiting.wait().isSuccess());
}

TEST(FileLockTest, saysWhyThereIsNone) {
  const fixtures::Sandbox sandbox;
  for (const auto& lock : {FileLock::takeFolder(sandbox / "absent", {}), FileLock::take(sandbox / "absent/lock", {})}) {
    ASSERT_FALSE(lock);
    EXPECT_EQ(lock.error().error, ENOENT);
  }
}

TEST(FileLockTest, isOnAFileOfTheUsersAloneAndNotBehindALink) {
  const fixtures::Sandbox sandbox;
  ASSERT_TRUE(FileLock::take(sandbox / "lock", {}));
  struct stat status = {};
  ASSERT_EQ(::stat((sandbox / "lock").c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 07777U, 0600U);
  std::filesystem::create_symlink("lock", sandbox / "link");
  const auto behindLink = FileLock::take(sandbox / "link", {});
  ASSERT_FALSE(behindLink);
  EXPECT_EQ(behindLink.error().error, ELOOP);
}

}  // namespace
}  // namespace tarnwell::system
