#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdlib>
#include <string>

#include "system/Descriptor.h"
#include "system/Fault.h"
#include "system/Pipe.h"

namespace tarnwell::system {
namespace {

/// The most bytes that a pipe of an ordinary process may hold; 0 when the system does not tell.
int largestSize() {
  const Descriptor file(::open("/proc/sys/fs/pipe-max-size", O_RDONLY | O_CLOEXEC));
  std::array<char, 16> text{};
  return ::read(file.number(), text.data(), text.size() - 1) > 0 ? std::atoi(text.data()) : 0;
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

Descriptor Pipe::bothEnds() const {
  const std::string path = "/proc/self/fd/" + std::to_string(writeEnd.number());
  return aboveStandardStreams(Descriptor(::open(path.c_str(), O_RDWR | O_CLOEXEC)));
}

void Pipe::grow() const {
  const int now = ::fcntl(writeEnd.number(), F_GETPIPE_SZ);
  // A user with many large pipes is refused the largest size, though perhaps not half of it.
  for (int size = largestSize(); size > now; size /= 2) {
    if (::fcntl(writeEnd.number(), F_SETPIPE_SZ, size) != -1) {
      return;
    }
  }
}

}  // namespace tarnwell::system
