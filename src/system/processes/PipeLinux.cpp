#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cerrno>

#include "system/base/Fault.h"
#include "system/processes/Pipe.h"

namespace tarnwell::system {

Pipe Pipe::create(std::string_view action) {
  std::array<int, 2> ends{};
  // Closed on exec from the start: a child that another thread starts at this moment must not hold the pipe open.
  if (::pipe2(ends.data(), O_CLOEXEC) != 0) {
    fault(action, errno);
  }
  return {.readEnd = requiredDescriptor(ends[0], action), .writeEnd = requiredDescriptor(ends[1], action)};
}

}  // namespace tarnwell::system
