#include <linux/close_range.h>
#include <poll.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <climits>
#include <csignal>
#include <cstdlib>

#include "system/processes/ProcessGuard.h"

namespace tarnwell::system {
namespace {

pollfd endOf(pid_t process) {
  return {.fd = static_cast<int>(::syscall(SYS_pidfd_open, process, 0)), .events = POLLIN, .revents = 0};
}

}  // namespace

// The kernel sees to limits, and to a child alone.
void waitBeside(const Guarded& guarded) {
  // What it holds of the starter's would not end with the starter.
  ::close_range(0, UINT_MAX, 0);
  std::array<pollfd, 2> ends = {endOf(guarded.starter), endOf(guarded.child)};
  auto& [starterEnd, childEnd] = ends;
  if (starterEnd.fd >= 0 && childEnd.fd >= 0) {
    ::poll(ends.data(), ends.size(), -1);
  }
  // Where the child has ended, it may be the kernel that has ended it with its starter.
  ::poll(&starterEnd, 1, 0);
  if (starterEnd.fd < 0 || starterEnd.revents != 0) {
    ::kill(guarded.endsWithStarter, SIGKILL);
  }
  ::_exit(EXIT_SUCCESS);
}

}  // namespace tarnwell::system
