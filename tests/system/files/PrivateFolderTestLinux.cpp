#include <gtest/gtest.h>
#include <sys/syscall.h>

#include <cerrno>
#include <string>
#include <vector>

#include "fixtures/Sandbox.h"
#include "fixtures/Subprocess.h"
#include "system/FilterLinux.h"
#include "system/files/PrivateFolder.h"

namespace tarnwell::system {
namespace {

using Way = Result<PrivateFolder> (*)(const std::filesystem::path&);

/// Whether a folder is refused for this reason where these calls fail.
bool isRefused(Way way, const std::filesystem::path& folder, const std::vector<unsigned>& calls, unsigned error,
               const std::string& message) {
  return fixtures::exitStatusOf([&] {
           for (const unsigned call : calls) {
             refuse(call, error);
           }
           const auto result = way(folder);
           return !result && result.error().message == message ? 0 : 1;
         }) == 0;
}

TEST(PrivateFolder, isRefusedWhereTheSystemDoesNotTellOfIt) {
  const fixtures::Sandbox sandbox;
  const std::string path = (sandbox / "a").string();
  ASSERT_TRUE(PrivateFolder::make(path));
  EXPECT_TRUE(isRefused(&PrivateFolder::open, path, {__NR_fstat, __NR_newfstatat}, EIO,
                        "cannot enter the folder " + path + ": Input/output error"));
  EXPECT_TRUE(isRefused(&PrivateFolder::open, path, {__NR_readlink, __NR_readlinkat}, EIO,
                        "other users can change the folder " + path));
}

TEST(PrivateFolder, isRefusedWhereOthersCannotBeKeptOut) {
  const fixtures::Sandbox sandbox;
  const std::string path = (sandbox / "a").string();
  std::filesystem::create_directory(path);
  EXPECT_TRUE(isRefused(&PrivateFolder::make, path, {__NR_fchmod}, EIO,
                        "cannot keep others out of the folder " + path + ": Input/output error"));
  // As on file systems that take a mode and forget it.
  for (const int mode : {0701, 0710, 0777}) {
    std::filesystem::permissions(path, std::filesystem::perms(mode));
    EXPECT_TRUE(isRefused(&PrivateFolder::make, path, {__NR_fchmod}, 0, "others can enter the folder " + path)) << mode;
  }
}

}  // namespace
}  // namespace tarnwell::system
