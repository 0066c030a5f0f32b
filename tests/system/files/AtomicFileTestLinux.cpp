#include <gtest/gtest.h>
#include <sys/syscall.h>

#include <cerrno>

#include "fixtures/Sandbox.h"
#include "fixtures/Subprocess.h"
#include "system/FilterLinux.h"
#include "system/files/AtomicFile.h"

namespace tarnwell::system {
namespace {

/// Whether it is said that a file which has been written is not safe in its folder.
bool isFoundUnsafe(const std::filesystem::path& target) {
  return fixtures::exitStatusOf([&target] {
           AtomicFile file(target, 0600);
           const bool isWritten = file.write("bytes") && refuse(__NR_fsync);
           const auto committed = file.commit();
           return isWritten && !committed && committed.error().error == EIO ? 0 : 1;
         }) == 0;
}

TEST(AtomicFileTest, whatCannotBeReadBackIsNotWritten) {
  const fixtures::Sandbox sandbox;
  EXPECT_EQ(fixtures::exitStatusOf([&sandbox] {
              AtomicFile file(sandbox / "list", 0600);
              const bool isRefused = refuse(__NR_read);
              const auto written = file.write("bytes");
              return isRefused && !written && written.error().message.starts_with("cannot read back ") ? 0 : 1;
            }),
            0);
}

TEST(AtomicFileTest, whatWasThereComesBackWhereTheNewFileIsNotSafe) {
  const fixtures::Sandbox sandbox;
  sandbox.write("list", "before");
  EXPECT_TRUE(isFoundUnsafe(sandbox / "list"));
  EXPECT_EQ(sandbox.read("list"), "before");
  EXPECT_FALSE(sandbox.holds(AtomicFile::passingPath("list").filename()));
}

TEST(AtomicFileTest, whatWasNotThereIsGoneWhereItIsNotSafe) {
  const fixtures::Sandbox sandbox;
  EXPECT_TRUE(isFoundUnsafe(sandbox / "list"));
  EXPECT_TRUE(std::filesystem::is_empty(sandbox.path()));
}

}  // namespace
}  // namespace tarnwell::system
