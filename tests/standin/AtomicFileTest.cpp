#include "standin/store/AtomicFile.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <sys/prctl.h>
#include <sys/syscall.h>

#include <array>
#include <cerrno>
#include <cstddef>
#include <filesystem>
#include <string>

#include "fixtures/Sandbox.h"
#include "fixtures/Subprocess.h"

namespace tarnwell::standin {
namespace {

constexpr const char* temporaryName = ".list.tmp";

/// From now on this process is on a file system that knows no files without a name.
bool refuseUnnamedFiles() {
  constexpr unsigned unnamed = O_TMPFILE & ~O_DIRECTORY;
  const auto load = [](std::size_t offset) -> sock_filter {
    return BPF_STMT(BPF_LD | BPF_W | BPF_ABS, static_cast<unsigned>(offset));
  };
  std::array<sock_filter, 6> program = {load(offsetof(seccomp_data, nr)),
                                        BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, __NR_openat, 0, 3),
                                        load(offsetof(seccomp_data, args[2])),
                                        BPF_JUMP(BPF_JMP | BPF_JSET | BPF_K, unnamed, 0, 1),
                                        BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ERRNO | EOPNOTSUPP),
                                        BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW)};
  const sock_fprog filter = {.len = program.size(), .filter = program.data()};
  return ::prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0 && ::prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &filter) == 0;
}

TEST(AtomicFileTest, isPlacedWhereFilesHaveToHaveANameToo) {
  const fixtures::Sandbox sandbox;
  sandbox.write(temporaryName, "what a killed process left");
  EXPECT_EQ(fixtures::exitStatusOf([&sandbox] {
              AtomicFile file(sandbox / "list", temporaryName);
              const bool isWritten = refuseUnnamedFiles() && !file.write("bytes") && sandbox.holds(temporaryName);
              return isWritten && !file.place() ? 0 : 1;
            }),
            0);
  EXPECT_EQ(sandbox.read("list"), "bytes");
  EXPECT_FALSE(sandbox.holds(temporaryName));
}

TEST(AtomicFileTest, takesANameThatALinkHas) {
  const fixtures::Sandbox sandbox;
  sandbox.write("list", "before");
  std::filesystem::create_symlink("elsewhere", sandbox / temporaryName);
  AtomicFile file(sandbox / "list", temporaryName);
  EXPECT_FALSE(file.write("bytes"));
  EXPECT_FALSE(file.commit());
  EXPECT_EQ(sandbox.read("list"), "bytes");
}

TEST(AtomicFileTest, isNotPlacedWhenItsNameWasTakenAway) {
  const fixtures::Sandbox sandbox;
  EXPECT_EQ(fixtures::exitStatusOf([&sandbox] {
              AtomicFile file(sandbox / "list", temporaryName);
              const bool isWritten = refuseUnnamedFiles() && !file.write("bytes");
              std::filesystem::remove(sandbox / temporaryName);
              return isWritten && file.place() ? 0 : 1;
            }),
            0);
  EXPECT_FALSE(sandbox.holds("list"));
}

}  // namespace
}  // namespace tarnwell::standin
