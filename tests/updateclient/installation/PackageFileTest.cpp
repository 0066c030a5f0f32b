#include "updateclient/installation/PackageFile.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <fstream>
#include <optional>
#include <string>

#include "fixtures/EnvironmentScope.h"
#include "fixtures/Sandbox.h"
#include "fixtures/Subprocess.h"

namespace tarnwell::updateclient {
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

TEST_F(PackageFileTest, hasNoName) {
  const PackageFile package = create();
  EXPECT_TRUE(package.write("one two"));
  EXPECT_EQ(contentOf(package.descriptor()), "one two");
  EXPECT_TRUE(fs::is_empty(folder));
}

TEST_F(PackageFileTest, isNewWhereOneOfAProcessThatWasKilledHasStayed) {
  fs::create_directories(folder);
  const fs::path left = folder / (".package-" + std::to_string(::getpid()));
  std::ofstream(left) << "left";
  const PackageFile package = create();
  EXPECT_EQ(contentOf(package.descriptor()), "");
  EXPECT_TRUE(fs::is_empty(folder));
}

TEST_F(PackageFileTest, isGoneWithItsObject) {
  {
    PackageFile package = create();
    EXPECT_TRUE(package.write("content"));
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

TEST_F(PackageFileTest, isItsUsersAlone) {
  const mode_t mask = ::umask(0);
  const PackageFile package = create();
  ::umask(mask);
  EXPECT_EQ(fs::status("/proc/self/fd/" + std::to_string(package.descriptor())).permissions(), fs::perms(0600));
}

// Where the engine finds its file.
TEST_F(PackageFileTest, standsClearOfTheStandardStreams) {
  EXPECT_EQ(fixtures::exitStatusOf([this] {
              ::close(STDIN_FILENO);
              return create().descriptor() > STDERR_FILENO ? 0 : 1;
            }),
            0);
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

TEST_F(PackageFileTest, aFolderThatAnotherUserCouldSwapIsRefused) {
  fs::create_directories(folder);
  const fs::path above = sandbox / "cache";
  fs::permissions(above, fs::perms::all);
  EXPECT_EQ(refusal(), "other users can change the folder " + fs::canonical(above).string());
  fs::permissions(above, fs::perms::all | fs::perms::sticky_bit);
  EXPECT_EQ(refusal(), "");
  fs::permissions(above, fs::perms(0755));
  if (::geteuid() == 0) {
    ASSERT_EQ(::chown(above.c_str(), 1, 1), 0);
    EXPECT_EQ(refusal(), "other users can change the folder " + fs::canonical(above).string());
  }
}

TEST_F(PackageFileTest, whatLiesThereIsRemovedWhenItIsOldEnough) {
  PackageFile package = create();
  sandbox.write("cache/tarnwell/updates/package.deb", "package");
  sandbox.write("cache/tarnwell/updates/work-abc/control", "of a tool");
  sandbox.write("kept", "content");
  fs::create_symlink(sandbox / "kept", folder / "link");
  const auto now = std::chrono::system_clock::now();
  removePackages(folder, now - std::chrono::hours(1));
  EXPECT_TRUE(fs::exists(folder / "package.deb"));
  removePackages(folder, now + std::chrono::hours(1));
  EXPECT_TRUE(fs::is_empty(folder));
  EXPECT_EQ(sandbox.read("kept"), "content");
}

TEST_F(PackageFileTest, whatIsAsOldAsThatIsNotOldEnough) {
  const PackageFile package = create();
  sandbox.write("cache/tarnwell/updates/package.deb", "package");
  const auto written = std::chrono::file_clock::to_sys(fs::last_write_time(folder / "package.deb"));
  removePackages(folder, std::chrono::time_point_cast<std::chrono::system_clock::duration>(written));
  EXPECT_TRUE(fs::exists(folder / "package.deb"));
  removePackages(folder, written + std::chrono::nanoseconds(1));
  EXPECT_TRUE(fs::is_empty(folder));
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

}  // namespace
}  // namespace tarnwell::updateclient
