#include <unistd.h>

#include <cerrno>
#include <csignal>

#include "confinement/Fences.h"

namespace tarnwell::confinement {
namespace {

// The system's own fence is meant for whole applications, by their signature; the call that a process could raise one
// with is not for use any more.
bool isMissing() {
  errno = ENOTSUP;
  return false;
}

}  // namespace

bool refuseNewPrivileges() { return isMissing(); }

// There is such a limit, which nothing minds.
bool limitMemory(std::uint64_t /*most*/) { return isMissing(); }

// The system has no timer that kills: this one ends what does not mind the signal.
bool limitTime(std::chrono::milliseconds most) {
  ::signal(SIGALRM, SIG_DFL);
  ::alarm(static_cast<unsigned>(std::chrono::ceil<std::chrono::seconds>(most).count()));
  return true;
}

bool fenceFiles(const Rights& /*rights*/) { return isMissing(); }

bool filterSystemCalls(const Rights& /*rights*/) { return isMissing(); }

}  // namespace tarnwell::confinement
