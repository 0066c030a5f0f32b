#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <utility>

#include "core/Pipe.h"
#include "core/SystemFault.h"

namespace tarnwell::core {

Pipe Pipe::create() {
  std::array<int, 2> ends{};
  // Closed on exec from the start: a child that another thread starts at this moment must not hold the pipe open.
  if (::pipe2(ends.data(), O_CLOEXEC) != 0) {
    systemFault("make a pipe", errno);
  }
  Pipe pipe = {.readEnd = Descriptor(ends[0]), .writeEnd = Descriptor(ends[1])};
  pipe.readEnd = aboveStandardStreams(std::move(pipe.readEnd));
  pipe.writeEnd = aboveStandardStreams(std::move(pipe.writeEnd));
  if (pipe.readEnd.isEmpty() || pipe.writeEnd.isEmpty()) {
    systemFault("make a pipe", errno);
  }
  return pipe;
}

}  // namespace tarnwell::core
