#include <gtest/gtest.h>
#include <sys/syscall.h>

#include <cerrno>

#include "fixtures/Sandbox.h"
#include "fixtures/Subprocess.h"
#include "system/FilterLinux.h"
#include "system/files/Folders.h"

namespace tarnwell::system {
namespace {

/// Whether the system's answer to a sync keeps a folder from being made, and is told then.
bool isMadeWhereASyncFailsWith(int error) {
  const fixtures::Sandbox sandbox;
  const int status = fixtures::exitStatusOf([&] {
    refuse(__NR_fsync, static_cast<unsigned>(error));
    if (makeFolders(sandbox / "a/b")) {
      return 0;
    }
    return errno == error ? 1 : 2;
  });
  EXPECT_LT(status, 2);
  return status == 0;
}

TEST(FoldersTest, reachTheDiskWhereTheFileSystemCanPromiseThat) {
  EXPECT_FALSE(isMadeWhereASyncFailsWith(EIO));
  EXPECT_TRUE(isMadeWhereASyncFailsWith(EINVAL));
}

}  // namespace
}  // namespace tarnwell::system
