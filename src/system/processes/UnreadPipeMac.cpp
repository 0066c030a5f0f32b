#include <utility>

#include "system/processes/Pipe.h"
#include "system/processes/UnreadPipe.h"

namespace tarnwell::system {

// No path leads to a pipe, so that none of its ends could be opened for both; and it grows by itself.
UnreadPipe UnreadPipe::create() {
  Pipe pipe = Pipe::create();
  return {.output = std::move(pipe.writeEnd), .otherEnd = std::move(pipe.readEnd)};
}

}  // namespace tarnwell::system
