#include "system/files/FileLock.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cerrno>
#include <chrono>
#include <filesystem>
#include <optional>

#include "fixtures/Sandbox.h"

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
  EXPECT_FALSE(FileLock::takeFolder(sandbox.path(), milliseconds(50)));
  EXPECT_GE(Clock::now() - begin, milliseconds(50));
  EXPECT_TRUE(std::filesystem::is_empty(sandbox.path()));
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
