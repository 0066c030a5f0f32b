#include "host/linux/start/InstanceSocket.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>

#include "fixtures/EnvironmentScope.h"
#include "fixtures/Sandbox.h"
#include "fixtures/Subprocess.h"

namespace tarnwell::host_linux {
namespace {

using Claimed = system::Result<std::unique_ptr<InstanceSocket>>;

/// Null where another one holds the lock, or where there is an error, which is a failure of the test.
std::unique_ptr<InstanceSocket> claim(const std::filesystem::path& folder, const std::string& message = {}) {
  Claimed claimed = InstanceSocket::claim(folder, "tarnwell", message);
  if (!claimed) {
    ADD_FAILURE() << claimed.error().message;
    return nullptr;
  }
  return *std::move(claimed);
}

TEST(InstanceSocketTest, theFirstHearsOfEveryFurtherOne) {
  const fixtures::Sandbox folder;
  const auto first = claim(folder.path());
  ASSERT_NE(first, nullptr);
  EXPECT_EQ(claim(folder.path(), "one"), nullptr);
  EXPECT_EQ(claim(folder.path(), "two"), nullptr);
  EXPECT_EQ(first->receive(), "one");
  EXPECT_EQ(first->receive(), "two");
  EXPECT_EQ(first->receive(), std::nullopt);
}

TEST(InstanceSocketTest, messageWithoutTextIsOneToo) {
  const fixtures::Sandbox folder;
  const auto first = claim(folder.path());
  EXPECT_EQ(claim(folder.path(), ""), nullptr);
  EXPECT_EQ(first->receive(), "");
  EXPECT_EQ(first->receive(), std::nullopt);
}

TEST(InstanceSocketTest, whatWasNotReceivedIsKnownAtTheEnd) {
  const fixtures::Sandbox folder;
  const auto first = claim(folder.path());
  EXPECT_EQ(claim(folder.path(), "one"), nullptr);
  EXPECT_EQ(claim(folder.path(), "two"), nullptr);
  EXPECT_EQ(first->stopListening(), "two");
  EXPECT_FALSE(folder.holds("tarnwell.socket"));
}

TEST(InstanceSocketTest, nothingIsLeftWhereEveryMessageWasReceived) {
  const fixtures::Sandbox folder;
  const auto first = claim(folder.path());
  EXPECT_EQ(claim(folder.path(), "one"), nullptr);
  EXPECT_EQ(first->receive(), "one");
  EXPECT_EQ(first->stopListening(), std::nullopt);
}

TEST(InstanceSocketTest, lockIsFreeAtTheEnd) {
  const fixtures::Sandbox folder;
  EXPECT_NE(claim(folder.path()), nullptr);
  EXPECT_NE(claim(folder.path()), nullptr);
  EXPECT_FALSE(folder.holds("tarnwell.socket"));
}

TEST(InstanceSocketTest, whatADeadProcessLeftIsReplaced) {
  const fixtures::Sandbox folder;
  fixtures::exitStatusOf([&folder] {
    // Never ended: the process goes with it.
    return claim(folder.path()).release() != nullptr ? 0 : 1;
  });
  ASSERT_TRUE(folder.holds("tarnwell.socket"));
  EXPECT_NE(claim(folder.path()), nullptr);
}

TEST(InstanceSocketTest, oneThatHoldsTheLockButNeverListensIsReported) {
  const fixtures::Sandbox folder;
  const auto first = claim(folder.path());
  std::filesystem::remove(folder / "tarnwell.socket");
  const Claimed second = InstanceSocket::claim(folder.path(), "tarnwell", {});
  ASSERT_FALSE(second);
  EXPECT_NE(second.error().message.find("does not answer"), std::string::npos);
}

TEST(InstanceSocketTest, queueThatIsFullIsMessageEnough) {
  const fixtures::Sandbox folder;
  const auto first = claim(folder.path());
  // Longer than any system lets it get.
  for (int i = 0; i < 1000; ++i) {
    ASSERT_EQ(claim(folder.path(), "again"), nullptr);
  }
  EXPECT_EQ(first->receive(), "again");
}

TEST(InstanceSocketTest, folderThatDoesNotExistIsReported) {
  const fixtures::EnvironmentScope runtime("XDG_RUNTIME_DIR", "/dev/null/nowhere");
  const fixtures::EnvironmentScope temporary("TMPDIR", "/dev/null/nowhere");
  const Claimed claimed = InstanceSocket::claim("tarnwell", "message");
  ASSERT_FALSE(claimed);
  EXPECT_NE(claimed.error().message.find("temporary"), std::string::npos);
}

TEST(InstanceSocketTest, childrenDoNotInheritLockOrSocket) {
  const fixtures::Sandbox folder;
  const auto first = claim(folder.path());
  const std::string listing = "ls -l /proc/self/fd | grep -c tarnwell.lock > '" + (folder / "count").string() + "'";
  EXPECT_NE(std::system(listing.c_str()), -1);
  EXPECT_EQ(folder.read("count"), "0\n");
}

TEST(InstanceSocketTest, folderThatIsTooDeepIsReported) {
  const fixtures::Sandbox folder;
  const std::string deep(120, 'd');
  const Claimed claimed = InstanceSocket::claim(folder / deep, "tarnwell", {});
  ASSERT_FALSE(claimed);
}

TEST(InstanceSocketTest, usesTheUsersRuntimeFolder) {
  const fixtures::Sandbox folder;
  const fixtures::EnvironmentScope runtime("XDG_RUNTIME_DIR", folder.path());
  EXPECT_EQ(*InstanceSocket::folder("tarnwell"), folder.path());
}

TEST(InstanceSocketTest, folderThatOthersMayReadIsNotUsed) {
  const fixtures::Sandbox folder;
  ::chmod(folder.path().c_str(), 0755);
  const fixtures::EnvironmentScope runtime("XDG_RUNTIME_DIR", folder.path());
  const fixtures::Sandbox other;
  const fixtures::EnvironmentScope temporary("TMPDIR", other.path());
  const auto used = *InstanceSocket::folder("tarnwell");
  EXPECT_EQ(used, other.path() / ("tarnwell-" + std::to_string(::geteuid())));
  EXPECT_EQ(std::filesystem::status(used).permissions(), std::filesystem::perms::owner_all);
}

}  // namespace
}  // namespace tarnwell::host_linux
