#include "system/processes/Process.h"

#include <sys/wait.h>

#include <cerrno>
#include <csignal>

namespace tarnwell::system {

Process& Process::operator=(Process&& other) noexcept {
  number_ = std::exchange(other.number_, -1);
  return *this;
}

void Process::send(int signal) const {
  // Without a process, its number would stand for every process there is.
  if (number_ > 0) {
    ::kill(number_, signal);
  }
}

void Process::sendToSession(int signal) const {
  if (number_ > 0) {
    ::kill(-number_, signal);
  }
}

// One that the system does not know any more counts as ended: where SIGCHLD was inherited as ignored, nothing is left
// of a child to reap.
std::optional<ProcessEnd> Process::reap(bool blocks) {
  siginfo_t info = {};
  int result = -1;
  do {
    result = ::waitid(P_PID, static_cast<id_t>(number_), &info, blocks ? WEXITED : WEXITED | WNOHANG);
  } while (result != 0 && errno == EINTR);
  if (result == 0 && info.si_pid == 0) {
    return std::nullopt;
  }
  number_ = -1;
  if (result != 0) {
    return ProcessEnd{};
  }
  return ProcessEnd{.how = info.si_code == CLD_EXITED ? ProcessEnd::How::exited : ProcessEnd::How::killed,
                    .number = info.si_status};
}

}  // namespace tarnwell::system
