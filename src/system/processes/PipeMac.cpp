#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <utility>

#include "system/base/Fault.h"
#include "system/processes/Pipe.h"

namespace tarnwell::system {
namespace {

Descriptor closedOnExec(int end, std::string_view action) {
  Descriptor descriptor = requiredDescriptor(end, action);
  ::fcntl(descriptor.number(), F_SETFD, FD_CLOEXEC);
  return descriptor;
}

}  // namespace

// No call makes the ends closed on exec from the start. What this process starts finds them closed all the same.
Pipe Pipe::create(std::string_view action) {
  std::array<int, 2> ends{};
  if (::pipe(ends.data()) != 0) {
    fault(action, errno);
  }
  return {.readEnd = closedOnExec(ends[0], action), .writeEnd = closedOnExec(ends[1], action)};
}

// No path leads to a pipe, so that none of its ends could be opened for both; and it grows by itself.
UnreadPipe UnreadPipe::create() {
  Pipe pipe = Pipe::create();
  return {.output = std::move(pipe.writeEnd), .otherEnd = std::move(pipe.readEnd)};
}

}  // namespace tarnwell::system
