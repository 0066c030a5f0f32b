#include "updater/package/PackageFile.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <optional>
#include <string>

#include "fixtures/EnvironmentScope.h"
#include "fixtures/Sandbox.h"
#include "updater/package/PackageFolder.h"

namespace tarnwell::updater {
namespace {

namespace fs = std::filesystem;

mode_t modeOf(const fs::path& path) {
  struct stat status = {};
  return ::stat(path.c_str(), &status) == 0 ? status.st_mode & 07777U : 0;
}

std::string contentOf(int descriptor) {
  std::array<char, 4096> bytes{};
  const ssize_t count = ::pread(descriptor, bytes.data(), bytes.size(), 0);
  return {bytes.data(), static_cast<std::size_t>(count)};
}

class PackageFileTest : public testing::Test {
 protected:
  PackageFile create() { return *PackageFile::create(folder); }

  std::string refusal() {
    const auto created = PackageFile::create(folder);
    return created ? "" : created.error().message;
  }

  fixtures::Sandbox sandbox;
  fs::path folder = sandbox / "cache/tarnwell/updates";
};

TEST_F(PackageFileTest, hasNoNameUntilItIsGivenOne) {
  PackageFile package = create();
  EXPECT_FALSE(package.append("one "));
  EXPECT_FALSE(package.append("two"));
  EXPECT_EQ(package.length(), 7U);
  EXPECT_EQ(contentOf(package.descriptor()), "one two");
  EXPECT_TRUE(fs::is_empty(folder));

  const auto named = package.giveName("package.deb");
  ASSERT_TRUE(named);
  EXPECT_EQ(*named, folder / "package.deb");
  EXPECT_EQ(sandbox.read("cache/tarnwell/updates/package.deb"), "one two");
  EXPECT_EQ(modeOf(folder / "package.deb"), 0400U);
}

TEST_F(PackageFileTest, theFileWithTheNameIsTheOneThatWasVerified) {
  PackageFile package = create();
  EXPECT_FALSE(package.append("verified"));
  sandbox.write("cache/tarnwell/updates/package.deb", "another user's");
  sandbox.write("cache/tarnwell/updates/.package.deb.draft", "in the way");
  ASSERT_TRUE(package.giveName("package.deb"));
  struct stat open = {};
  struct stat named = {};
  ASSERT_EQ(::fstat(package.descriptor(), &open), 0);
  ASSERT_EQ(::stat((folder / "package.deb").c_str(), &named), 0);
  EXPECT_EQ(open.st_ino, named.st_ino);
}

TEST_F(PackageFileTest, isGoneWithItsObject) {
  {
    PackageFile package = create();
    EXPECT_FALSE(package.append("content"));
  }
  EXPECT_TRUE(fs::is_empty(folder));
}

TEST_F(PackageFileTest, keepsOthersOut) {
  fs::create_directories(folder);
  fs::permissions(folder, fs::perms::all);
  const PackageFile package = create();
  EXPECT_EQ(modeOf(folder), 0700U);
  EXPECT_EQ(modeOf(sandbox / "cache/tarnwell"), 0755U & modeOf(sandbox / "cache"));
  EXPECT_NE(::fcntl(package.descriptor(), F_GETFD) & FD_CLOEXEC, 0);
}

TEST_F(PackageFileTest, newFoldersAreTheUsersAlone) {
  const PackageFile package = create();
  EXPECT_EQ(modeOf(sandbox / "cache"), 0700U);
  EXPECT_EQ(modeOf(sandbox / "cache/tarnwell"), 0700U);
}

TEST_F(PackageFileTest, aLinkOrAFileIsNoFolderForDownloads) {
  fs::create_directories(folder.parent_path());
  fs::create_directory_symlink("/tmp", folder);
  EXPECT_NE(refusal(), "");
  fs::remove(folder);
  sandbox.write("cache/tarnwell/updates", "");
  EXPECT_NE(refusal(), "");
}

TEST_F(PackageFileTest, anotherUsersFolderIsRefused) {
  if (::geteuid() != 0) {
    GTEST_SKIP() << "only root can give a folder away";
  }
  fs::create_directories(folder);
  ASSERT_EQ(::chown(folder.c_str(), 1, 1), 0);
  EXPECT_EQ(refusal(), "the folder " + folder.string() + " belongs to another user");
}

TEST_F(PackageFileTest, namesStayInTheFolder) {
  PackageFile package = create();
  for (const char* name : {"", ".", "..", "../x", "a/b", "/etc/x", ".hidden"}) {
    EXPECT_FALSE(package.giveName(name)) << name;
  }
  EXPECT_TRUE(fs::is_empty(folder));
}

TEST_F(PackageFileTest, aFileThatCannotBeNamedIsCopied) {
  PackageFile package = create();
  const std::string content(600'000, 'x');
  EXPECT_FALSE(package.append(content));
  // What was unlinked once cannot be linked again, as on file systems that have no files without a name.
  ASSERT_TRUE(package.giveName("one"));
  fs::remove(folder / "one");
  const auto named = package.giveName("two");
  ASSERT_TRUE(named) << named.error().message;
  EXPECT_EQ(sandbox.read("cache/tarnwell/updates/two"), content);
  EXPECT_EQ(modeOf(folder / "two"), 0400U);
  EXPECT_EQ(std::distance(fs::directory_iterator(folder), fs::directory_iterator()), 1);
}

TEST_F(PackageFileTest, aFullDiskIsAFailure) {
  const int full = ::open("/dev/full", O_WRONLY | O_CLOEXEC);
  ASSERT_GE(full, 0);
  PackageFile package = create();
  ASSERT_GE(::dup2(full, package.descriptor()), 0);
  ::close(full);
  EXPECT_EQ(package.append("content")->message, "cannot keep the download: No space left on device");
  EXPECT_EQ(package.length(), 0U);
}

TEST_F(PackageFileTest, itsAgeCountsFromItsName) {
  PackageFile package = create();
  constexpr std::array<timespec, 2> longAgo = {};
  ASSERT_EQ(::futimens(package.descriptor(), longAgo.data()), 0);
  ASSERT_TRUE(package.giveName("package.deb"));
  removePackages(folder, std::chrono::system_clock::now() - std::chrono::hours(1));
  EXPECT_TRUE(fs::exists(folder / "package.deb"));
}

TEST_F(PackageFileTest, namedPackagesAreRemovedWhenTheyAreOldEnough) {
  PackageFile package = create();
  ASSERT_TRUE(package.giveName("package.deb"));
  sandbox.write("kept", "content");
  fs::create_symlink(sandbox / "kept", folder / "link");
  const auto now = std::chrono::system_clock::now();
  removePackages(folder, now - std::chrono::hours(1));
  EXPECT_TRUE(fs::exists(folder / "package.deb"));
  removePackages(folder, now + std::chrono::hours(1));
  EXPECT_FALSE(fs::exists(folder / "package.deb"));
  EXPECT_EQ(sandbox.read("kept"), "content");
}

TEST_F(PackageFileTest, nothingIsRemovedThroughALink) {
  fs::create_directories(sandbox / "documents");
  sandbox.write("documents/letter", "content");
  fs::create_directories(folder.parent_path());
  fs::create_directory_symlink(sandbox / "documents", folder);
  constexpr auto always = std::chrono::system_clock::time_point::max();
  removePackages(folder, always);
  EXPECT_EQ(sandbox.read("documents/letter"), "content");
  removePackages(sandbox / "not there", always);
}

TEST_F(PackageFileTest, theFolderIsInTheCacheOfTheUser) {
  const fixtures::EnvironmentScope home("HOME", "/home/somebody");
  {
    const fixtures::EnvironmentScope cache("XDG_CACHE_HOME", "/var/cache/somebody");
    EXPECT_EQ(*packageFolder(), "/var/cache/somebody/tarnwell/updates");
  }
  const fixtures::EnvironmentScope cache("XDG_CACHE_HOME", "relative");
  EXPECT_EQ(*packageFolder(), "/home/somebody/.cache/tarnwell/updates");
  const fixtures::EnvironmentScope nowhere("HOME", "");
  EXPECT_FALSE(packageFolder());
}

}  // namespace
}  // namespace tarnwell::updater
