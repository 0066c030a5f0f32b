#include <gtest/gtest.h>
#include <sys/syscall.h>

#include <array>
#include <cerrno>
#include <cstddef>

#include "fixtures/Sandbox.h"
#include "fixtures/Subprocess.h"
#include "system/FilterLinux.h"
#include "system/files/AtomicFile.h"

namespace tarnwell::system {
namespace {

/// From now on this process is on a disk that keeps nothing.
bool refuseSyncs() {
  std::array<sock_filter, 4> program = {
      loaded(offsetof(seccomp_data, nr)), BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, __NR_fsync, 0, 1),
      BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ERRNO | EIO), BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW)};
  return filterCalls(program);
}

/// Whether it is said that a file which has been written is not safe in its folder.
bool isFoundUnsafe(const std::filesystem::path& target) {
  return fixtures::exitStatusOf([&target] {
           AtomicFile file(target, 0600);
           const bool isWritten = file.write("bytes") && refuseSyncs();
           const auto committed = file.commit();
           return isWritten && !committed && committed.error().error == EIO ? 0 : 1;
         }) == 0;
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
