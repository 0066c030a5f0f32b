#include <gtest/gtest.h>
#include <sys/syscall.h>

#include "system/FilterLinux.h"
#include "system/processes/CheckedRun.h"

namespace tarnwell::system {
namespace {

void runWithout(unsigned call) {
  refuse(call);
  (void)runChecked({.words = {"true"}}, std::chrono::milliseconds(10));
}

TEST(CheckedRunTest, whatCannotBeWatchedIsAFault) {
  const char* const message = "^tarnwell: cannot watch a command: Input/output error\n$";
  EXPECT_DEATH(runWithout(__NR_pidfd_open), message);
  EXPECT_DEATH(runWithout(__NR_epoll_ctl), message);
}

}  // namespace
}  // namespace tarnwell::system
