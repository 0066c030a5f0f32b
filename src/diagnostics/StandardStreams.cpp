#include "diagnostics/StandardStreams.h"

#include <fcntl.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>

namespace tarnwell::diagnostics {

void prepareStandardStreams() {
  for (int stream = STDIN_FILENO; stream <= STDERR_FILENO; ++stream) {
    // The lowest free number is this one. Reading only: a write to a stream that was closed must still fail.
    if (::fcntl(stream, F_GETFD) < 0 && ::open("/dev/null", O_RDONLY) < 0) {
      ::_exit(EXIT_FAILURE);
    }
  }
  (void)std::signal(SIGPIPE, SIG_IGN);
  (void)std::signal(SIGXFSZ, SIG_IGN);
}

}  // namespace tarnwell::diagnostics
