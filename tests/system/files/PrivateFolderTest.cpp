#include "system/files/PrivateFolder.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <string>
#include <utility>
#include <vector>

#include "fixtures/Sandbox.h"
#include "fixtures/Subprocess.h"
#include "system/base/Descriptor.h"

namespace tarnwell::system {
namespace {

namespace fs = std::filesystem;

std::string refusalOf(const Result<PrivateFolder>& result) { return result ? "" : result.error().message; }

mode_t modeOfFolder(const fs::path& path) {
  struct stat status = {};
  return ::stat(path.c_str(), &status) == 0 ? status.st_mode & 07777U : 0;
}

TEST(PrivateFolder, isMadeForItsOwnerAlone) {
  const fixtures::Sandbox sandbox;
  const auto made = PrivateFolder::make(sandbox / "a/b");
  ASSERT_EQ(refusalOf(made), "");
  EXPECT_EQ(modeOfFolder(sandbox / "a"), 0700U);
  EXPECT_EQ(modeOfFolder(sandbox / "a/b"), 0700U);
  const auto& folder = *made;
  EXPECT_EQ(folder.path(), sandbox / "a/b");
  EXPECT_NE(::fcntl(folder.descriptor(), F_GETFD) & FD_CLOEXEC, 0);
}

TEST(PrivateFolder, isClosedToOthersWhenItWasOpen) {
  const fixtures::Sandbox sandbox;
  fs::create_directory(sandbox / "a");
  fs::permissions(sandbox / "a", fs::perms::all);
  ASSERT_EQ(refusalOf(PrivateFolder::open(sandbox / "a")), "");
  EXPECT_EQ(modeOfFolder(sandbox / "a"), 0777U);
  ASSERT_EQ(refusalOf(PrivateFolder::make(sandbox / "a")), "");
  EXPECT_EQ(modeOfFolder(sandbox / "a"), 0700U);
}

TEST(PrivateFolder, isNoLinkAndNoFile) {
  const fixtures::Sandbox sandbox;
  fs::create_directory(sandbox / "real");
  fs::create_directory_symlink(sandbox / "real", sandbox / "link");
  sandbox.write("file", "");
  for (const char* name : {"link", "file"}) {
    EXPECT_TRUE(refusalOf(PrivateFolder::make(sandbox / name)).starts_with("cannot enter the folder ")) << name;
    EXPECT_TRUE(refusalOf(PrivateFolder::open(sandbox / name)).starts_with("cannot enter the folder ")) << name;
  }
  EXPECT_NE(modeOfFolder(sandbox / "real"), 0700U);
  EXPECT_EQ(refusalOf(PrivateFolder::open(sandbox / "absent")),
            "cannot enter the folder " + (sandbox / "absent").string() + ": No such file or directory");
  EXPECT_FALSE(fs::exists(sandbox / "absent"));
  EXPECT_TRUE(refusalOf(PrivateFolder::make(sandbox / "file/below")).starts_with("cannot make the folder "));
}

TEST(PrivateFolder, isKnownByWhereItLiesAndNotByALinkAboveIt) {
  const fixtures::Sandbox sandbox;
  ASSERT_EQ(refusalOf(PrivateFolder::make(sandbox / "real/a")), "");
  fs::create_directory_symlink(sandbox / "real", sandbox / "link");
  const auto opened = PrivateFolder::open(sandbox / "link/a");
  ASSERT_EQ(refusalOf(opened), "");
  EXPECT_EQ((*opened).path(), sandbox / "real/a");
}

TEST(PrivateFolder, belongsToTheUser) {
  if (::geteuid() != 0) {
    GTEST_SKIP() << "only root can give a folder away";
  }
  const fixtures::Sandbox sandbox;
  fs::create_directory(sandbox / "a");
  ASSERT_EQ(::chown((sandbox / "a").c_str(), 1, 1), 0);
  for (const auto& result : {&PrivateFolder::make, &PrivateFolder::open}) {
    EXPECT_EQ(refusalOf(result(sandbox / "a")), "the folder " + (sandbox / "a").string() + " belongs to another user");
  }
}

TEST(PrivateFolder, isBelowNoFolderThatOthersCanChange) {
  const fixtures::Sandbox sandbox;
  const fs::path above = sandbox / "above";
  fs::create_directories(above / "a/b");
  const std::string refusal = "other users can change the folder " + above.string();
  const std::vector<std::pair<int, std::string>> rows = {{0700, ""}, {0770, ""}, {0777, refusal}, {01777, ""}};
  for (const auto& [mode, expected] : rows) {
    fs::permissions(above, fs::perms(mode));
    for (const fs::path& folder : {above / "a", above / "a/b"}) {
      EXPECT_EQ(refusalOf(PrivateFolder::open(folder)), expected) << folder << std::oct << mode;
    }
  }
}

TEST(PrivateFolder, isBelowFoldersOfTheUserAndTheSystem) {
  if (::geteuid() != 0) {
    GTEST_SKIP() << "only root can give a folder away";
  }
  constexpr uid_t user = 65534;
  constexpr uid_t another = 65533;
  const fixtures::Sandbox sandbox;
  fs::permissions(sandbox.path(), fs::perms(0755));
  const fs::path above = sandbox / "above";
  fs::create_directories(above / "a");
  fs::permissions(above, fs::perms(0775));
  ASSERT_EQ(::chown((above / "a").c_str(), user, user), 0);
  const std::string refusal = "other users can change the folder " + above.string();
  struct Row {
    uid_t owner;
    gid_t group;
    std::string refusal;
  };
  for (const Row& row : {Row{0, 0, ""}, Row{user, user, ""}, Row{another, 0, refusal}, Row{0, another, refusal}}) {
    ASSERT_EQ(::chown(above.c_str(), row.owner, row.group), 0);
    EXPECT_EQ(fixtures::exitStatusOf([&] {
                const bool isUser = ::setgid(user) == 0 && ::setuid(user) == 0;
                return isUser && refusalOf(PrivateFolder::open(above / "a")) == row.refusal ? 0 : 1;
              }),
              0)
        << row.owner << " " << row.group;
  }
}

TEST(PrivateFolder, knowsWhetherItsPathLeadsToAFile) {
  const fixtures::Sandbox sandbox;
  const auto made = PrivateFolder::make(sandbox / "a");
  ASSERT_EQ(refusalOf(made), "");
  const auto& folder = *made;
  sandbox.write("a/file", "meant");
  sandbox.write("a/other", "meant");
  const Descriptor file(::open((sandbox / "a/file").c_str(), O_RDONLY | O_CLOEXEC));
  EXPECT_TRUE(folder.leadsTo("file", file.number()));
  EXPECT_FALSE(folder.leadsTo("other", file.number()));
  EXPECT_FALSE(folder.leadsTo("absent", file.number()));
  fs::rename(sandbox / "a", sandbox / "moved");
  EXPECT_FALSE(folder.leadsTo("file", file.number()));
  sandbox.write("a/file", "meant");
  EXPECT_FALSE(folder.leadsTo("file", file.number()));
}

}  // namespace
}  // namespace tarnwell::system
