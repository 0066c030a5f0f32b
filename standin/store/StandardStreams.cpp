#include "standin/store/StandardStreams.h"

#include <fcntl.h>
#include <unistd.h>

#include "standin/store/Descriptor.h"

namespace tarnwell::standin {
namespace {

bool writeTo(int stream, std::string_view text) {
  const Descriptor copy(::fcntl(stream, F_DUPFD_CLOEXEC, STDERR_FILENO + 1));
  return copy && copy.writeAll(text);
}

}  // namespace

bool printOut(std::string_view text) { return writeTo(STDOUT_FILENO, text); }

void printError(std::string_view text) { writeTo(STDERR_FILENO, text); }

}  // namespace tarnwell::standin
