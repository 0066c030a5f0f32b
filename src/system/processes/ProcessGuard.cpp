#include "system/processes/ProcessGuard.h"

#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>

namespace tarnwell::system {

// A child's child: it is the system's to take off the list. What ends all of the starter's group leaves it alone.
void guard(const Guarded& guarded) {
  const pid_t between = ::fork();
  if (between == 0) {
    ::setsid();
    if (::fork() == 0) {
      waitBeside(guarded);
    }
    ::_exit(EXIT_SUCCESS);
  }
  if (between > 0) {
    ::waitpid(between, nullptr, 0);
  }
}

}  // namespace tarnwell::system
