#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdlib>
#include <string>

#include "system/base/Fault.h"
#include "system/processes/Pipe.h"

namespace tarnwell::system {
namespace {

/// The most bytes that a pipe of an ordinary process may hold; 0 when the system does not tell.
int largestSize() {
  const Descriptor file(::open("/proc/sys/fs/pipe-max-size", O_RDONLY | O_CLOEXEC));
  return std::atoi(file.readPart().value_or("").c_str());
}

void grow(int pipe) {
  const int now = ::fcntl(pipe, F_GETPIPE_SZ);
  // A user with many large pipes is refused the largest size, though perhaps not half of it.
  for (int size = largestSize(); size > now; size /= 2) {
    if (::fcntl(pipe, F_SETPIPE_SZ, size) != -1) {
      return;
    }
  }
}

}  // namespace

Pipe Pipe::create(std::string_view action) {
  std::array<int, 2> ends{};
  // Closed on exec from the start: a child that another thread starts at this moment must not hold the pipe open.
  if (::pipe2(ends.data(), O_CLOEXEC) != 0) {
    fault(action, errno);
  }
  return {.readEnd = requiredDescriptor(ends[0], action), .writeEnd = requiredDescriptor(ends[1], action)};
}

UnreadPipe UnreadPipe::create() {
  const Pipe pipe = Pipe::create();
  const std::string path = "/proc/self/fd/" + std::to_string(pipe.writeEnd.number());
  UnreadPipe both = {.output = requiredDescriptor(::open(path.c_str(), O_RDWR | O_CLOEXEC), "make a pipe")};
  grow(both.output.number());
  return both;
}

}  // namespace tarnwell::system
