#include "system/Pipe.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstddef>
#include <fstream>

#include "fixtures/Subprocess.h"

namespace tarnwell::system {
namespace {

using fixtures::exitStatusOf;

int sizeOf(const Pipe& pipe) { return ::fcntl(pipe.writeEnd.number(), F_GETPIPE_SZ); }

int largestSizeOfTheSystem() {
  int size = 0;
  std::ifstream("/proc/sys/fs/pipe-max-size") >> size;
  return size;
}

/// From now on this process is refused pipes of more than `most` bytes, as one whose user has too many large ones is.
bool refusePipesAbove(unsigned most) {
  const auto load = [](std::size_t offset) -> sock_filter {
    return BPF_STMT(BPF_LD | BPF_W | BPF_ABS, static_cast<unsigned>(offset));
  };
  std::array<sock_filter, 8> program = {load(offsetof(seccomp_data, nr)),
                                        BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, __NR_fcntl, 0, 5),
                                        load(offsetof(seccomp_data, args[1])),
                                        BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, F_SETPIPE_SZ, 0, 3),
                                        load(offsetof(seccomp_data, args[2])),
                                        BPF_JUMP(BPF_JMP | BPF_JGT | BPF_K, most, 0, 1),
                                        BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ERRNO | EPERM),
                                        BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW)};
  const sock_fprog filter = {.len = program.size(), .filter = program.data()};
  return ::prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0 && ::prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &filter) == 0;
}

/// Makes a pipe where only the numbers in `closed` and one above the standard streams can be had.
void makePipeWithOneNumberLeft(std::initializer_list<int> closed) {
  const int last = ::dup(STDERR_FILENO);
  ::close(last);
  for (const int number : closed) {
    ::close(number);
  }
  const rlim_t count = static_cast<rlim_t>(last) + 1;
  const rlimit limit = {.rlim_cur = count, .rlim_max = count};
  ::setrlimit(RLIMIT_NOFILE, &limit);
  Pipe::create();
}

TEST(PipeTest, anEndThatCannotLeaveTheStandardStreamsIsAFault) {
  const char* const message = "^tarnwell: cannot make a pipe: .*\n$";
  EXPECT_DEATH(makePipeWithOneNumberLeft({STDIN_FILENO}), message);
  EXPECT_DEATH(makePipeWithOneNumberLeft({STDIN_FILENO, STDOUT_FILENO}), message);
}

TEST(PipeTest, growsToTheLargestSizeOfTheSystem) {
  const Pipe pipe = Pipe::create();
  EXPECT_LT(sizeOf(pipe), largestSizeOfTheSystem());
  pipe.grow();
  EXPECT_EQ(sizeOf(pipe), largestSizeOfTheSystem());
}

TEST(PipeTest, growsAsFarAsItMay) {
  constexpr int most = 262144;
  const auto body = [] {
    if (!refusePipesAbove(most)) {
      return 1;
    }
    const Pipe pipe = Pipe::create();
    pipe.grow();
    return sizeOf(pipe) == most ? 0 : 2;
  };
  EXPECT_EQ(exitStatusOf(body), 0);
}

TEST(PipeTest, staysAsItIsWhereItMayNotGrow) {
  const auto body = [] {
    const Pipe pipe = Pipe::create();
    const int before = sizeOf(pipe);
    if (!refusePipesAbove(0)) {
      return 1;
    }
    pipe.grow();
    return sizeOf(pipe) == before ? 0 : 2;
  };
  EXPECT_EQ(exitStatusOf(body), 0);
}

}  // namespace
}  // namespace tarnwell::system
