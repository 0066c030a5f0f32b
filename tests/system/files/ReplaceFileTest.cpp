#include "system/files/AtomicFile.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>

#include "fixtures/Sandbox.h"
#include "fixtures/Subprocess.h"

namespace tarnwell::system {
namespace {

namespace fs = std::filesystem;

std::size_t filesIn(const fs::path& folder) {
  return static_cast<std::size_t>(std::distance(fs::directory_iterator(folder), {}));
}

mode_t modeOfFile(const fs::path& path) {
  struct stat status = {};
  return ::stat(path.c_str(), &status) == 0 ? status.st_mode & 07777U : 0;
}

TEST(ReplaceFileTest, writesANewFileThatAllCanRead) {
  const fixtures::Sandbox sandbox;
  EXPECT_TRUE(replaceFile(sandbox / "a", "text"));
  EXPECT_EQ(sandbox.read("a"), "text");
  EXPECT_EQ(modeOfFile(sandbox / "a"), 0644U);
  EXPECT_EQ(filesIn(sandbox.path()), 1U);
}

TEST(ReplaceFileTest, replacesAndKeepsTheMode) {
  const fixtures::Sandbox sandbox;
  sandbox.write("a", "a longer text");
  fs::permissions(sandbox / "a", fs::perms(0600));
  EXPECT_TRUE(replaceFile(sandbox / "a", ""));
  EXPECT_EQ(sandbox.read("a"), "");
  EXPECT_EQ(modeOfFile(sandbox / "a"), 0600U);
  EXPECT_EQ(filesIn(sandbox.path()), 1U);
}

TEST(ReplaceFileTest, makesMissingFoldersForTheirOwnerAlone) {
  const fixtures::Sandbox sandbox;
  EXPECT_TRUE(replaceFile(sandbox / "config" / "autostart" / "a", "text"));
  EXPECT_EQ(sandbox.read("config/autostart/a"), "text");
  EXPECT_EQ(modeOfFile(sandbox / "config"), 0700U);
  EXPECT_EQ(modeOfFile(sandbox / "config" / "autostart"), 0700U);
}

TEST(ReplaceFileTest, aLinkBecomesAFile) {
  const fixtures::Sandbox sandbox;
  sandbox.write("elsewhere", "theirs");
  fs::create_symlink(sandbox / "elsewhere", sandbox / "a");
  EXPECT_TRUE(replaceFile(sandbox / "a", "ours"));
  EXPECT_FALSE(fs::is_symlink(sandbox / "a"));
  EXPECT_EQ(sandbox.read("elsewhere"), "theirs");
  EXPECT_EQ(modeOfFile(sandbox / "a"), 0644U);
}

TEST(ReplaceFileTest, saysWhyNot) {
  const fixtures::Sandbox sandbox;
  sandbox.write("file", "");
  fs::create_directory(sandbox / "folder");
  for (const fs::path& path : {sandbox / "file" / "a", sandbox / "file" / "b" / "a", sandbox / "folder"}) {
    const auto result = replaceFile(path, "text");
    ASSERT_FALSE(result) << path;
    EXPECT_TRUE(result.error().message.starts_with("cannot write " + path.string() + ": ")) << result.error().message;
  }
  EXPECT_EQ(filesIn(sandbox.path()), 2U);
}

TEST(ReplaceFileTest, aProgramWithoutStandardInputWritesAsWell) {
  const fixtures::Sandbox sandbox;
  const int status = fixtures::exitStatusOf([&] {
    ::close(STDIN_FILENO);
    return replaceFile(sandbox / "a", "text") ? 0 : 1;
  });
  EXPECT_EQ(status, 0);
  EXPECT_EQ(sandbox.read("a"), "text");
  EXPECT_EQ(filesIn(sandbox.path()), 1U);
}

TEST(ReplaceFileTest, aDiskWithoutRoomLeavesTheOldFile) {
  const fixtures::Sandbox sandbox;
  sandbox.write("a", "old");
  const int status = fixtures::exitStatusOf([&] {
    std::signal(SIGXFSZ, SIG_IGN);
    const rlimit room = {.rlim_cur = 16, .rlim_max = 16};
    ::setrlimit(RLIMIT_FSIZE, &room);
    return replaceFile(sandbox / "a", std::string(100, 'x')) ? 1 : 0;
  });
  EXPECT_EQ(status, 0);
  EXPECT_EQ(sandbox.read("a"), "old");
  EXPECT_EQ(filesIn(sandbox.path()), 1U);
}

}  // namespace
}  // namespace tarnwell::system
