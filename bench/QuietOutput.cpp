#include "QuietOutput.h"

#include <fcntl.h>
#include <unistd.h>

#include <iostream>
#include <string>

namespace tarnwell::bench {

QuietOutput::QuietOutput() : terminal_(::fcntl(STDOUT_FILENO, F_DUPFD_CLOEXEC, 0)) {
  // A report that goes to a file must not take away what stands there.
  report_.open("/dev/fd/" + std::to_string(terminal_), std::ios::app);
  previous_ = std::cout.rdbuf(report_.rdbuf());
  const int nowhere = ::open("/dev/null", O_WRONLY | O_CLOEXEC);
  ::dup2(nowhere, STDOUT_FILENO);
  ::close(nowhere);
}

QuietOutput::~QuietOutput() {
  std::cout.rdbuf(previous_);
  ::dup2(terminal_, STDOUT_FILENO);
  ::close(terminal_);
}

}  // namespace tarnwell::bench
