#include "standin/store/StandardStreams.h"

#include <fcntl.h>
#include <unistd.h>

#include <csignal>

#include "standin/store/Descriptor.h"

namespace tarnwell::standin {
namespace {

bool writeTo(int stream, std::string_view text) {
  const Descriptor copy(::fcntl(stream, F_DUPFD_CLOEXEC, STDERR_FILENO + 1));
  return copy && copy.writeAll(text);
}

}  // namespace

void prepareStandardStreams() {
  for (int stream = STDIN_FILENO; stream <= STDERR_FILENO; ++stream) {
    // Reading only: a write to a stream that was closed must still fail.
    if (::fcntl(stream, F_GETFD) < 0 && ::open("/dev/null", O_RDONLY) < 0) {
      ::_exit(1);
    }
  }
  (void)std::signal(SIGPIPE, SIG_IGN);
  (void)std::signal(SIGXFSZ, SIG_IGN);
}

bool printOut(std::string_view text) { return writeTo(STDOUT_FILENO, text); }

void printError(std::string_view text) { writeTo(STDERR_FILENO, text); }

}  // namespace tarnwell::standin
