#include "system/processes/Pipe.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <unistd.h>

namespace tarnwell::system {
namespace {

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

}  // namespace
}  // namespace tarnwell::system
