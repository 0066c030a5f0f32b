#include <sys/prctl.h>

#include <csignal>
#include <ctime>

#include "confinement/Fences.h"
#include "confinement/Limit.h"

namespace tarnwell::confinement {

bool refuseNewPrivileges() { return ::prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0; }

// A sanitizer's shadow is larger than all memory.
bool limitMemory(std::uint64_t most) { return TARNWELL_IS_SANITIZED || limitResource(RLIMIT_AS, most); }

// Of a signal that cannot be blocked. The filter of system calls keeps the timer from being set anew.
bool limitTime(std::chrono::milliseconds most) {
  sigevent kill = {};
  kill.sigev_notify = SIGEV_SIGNAL;
  kill.sigev_signo = SIGKILL;
  timer_t timer = {};
  const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(most);
  const itimerspec once = {
      .it_interval = {},
      .it_value = {.tv_sec = seconds.count(), .tv_nsec = std::chrono::nanoseconds(most - seconds).count()}};
  return ::timer_create(CLOCK_MONOTONIC, &kill, &timer) == 0 && ::timer_settime(timer, 0, &once, nullptr) == 0;
}

}  // namespace tarnwell::confinement
