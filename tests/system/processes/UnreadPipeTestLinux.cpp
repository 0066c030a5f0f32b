#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/syscall.h>

#include <array>
#include <cerrno>
#include <cstddef>
#include <fstream>
#include <utility>

#include "fixtures/Subprocess.h"
#include "system/FilterLinux.h"
#include "system/processes/Pipe.h"

namespace tarnwell::system {
namespace {

using fixtures::exitStatusOf;

int sizeOf(const UnreadPipe& pipe) { return ::fcntl(pipe.output.number(), F_GETPIPE_SZ); }

int largestSizeOfTheSystem() {
  int size = 0;
  std::ifstream("/proc/sys/fs/pipe-max-size") >> size;
  return size;
}

/// From now on this process is refused pipes of more than `most` bytes, as one whose user has too many large ones is.
bool refusePipesAbove(unsigned most) {
  std::array<sock_filter, 8> program = {loaded(offsetof(seccomp_data, nr)),
                                        BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, __NR_fcntl, 0, 5),
                                        loaded(offsetof(seccomp_data, args[1])),
                                        BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, F_SETPIPE_SZ, 0, 3),
                                        loaded(offsetof(seccomp_data, args[2])),
                                        BPF_JUMP(BPF_JMP | BPF_JGT | BPF_K, most, 0, 1),
                                        BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ERRNO | EPERM),
                                        BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW)};
  return filterCalls(program);
}

TEST(UnreadPipeTest, isOfTheLargestSizeOfTheSystem) {
  EXPECT_LT(sizeOf({.output = std::move(Pipe::create().writeEnd)}), largestSizeOfTheSystem());
  EXPECT_EQ(sizeOf(UnreadPipe::create()), largestSizeOfTheSystem());
}

TEST(UnreadPipeTest, isAsLargeAsItMayBe) {
  constexpr int most = 262144;
  EXPECT_EQ(exitStatusOf([] { return refusePipesAbove(most) && sizeOf(UnreadPipe::create()) == most ? 0 : 1; }), 0);
}

TEST(UnreadPipeTest, isAPipeLikeOthersWhereItMayNotGrow) {
  const auto body = [] {
    const int usual = sizeOf({.output = std::move(Pipe::create().writeEnd)});
    return refusePipesAbove(0) && sizeOf(UnreadPipe::create()) == usual ? 0 : 1;
  };
  EXPECT_EQ(exitStatusOf(body), 0);
}

}  // namespace
}  // namespace tarnwell::system
