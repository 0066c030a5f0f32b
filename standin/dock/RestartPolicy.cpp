#include "standin/dock/RestartPolicy.h"

#include <algorithm>
#include <array>
#include <csignal>
#include <utility>

namespace tarnwell::standin {

std::chrono::milliseconds RestartPolicy::delayAfter(Ending ending, std::chrono::milliseconds lifetime) {
  if (ending == Ending::killed || lifetime >= std::chrono::seconds(1)) {
    next_ = shortestDelay;
    return std::chrono::milliseconds::zero();
  }
  return std::exchange(next_, std::min(2 * next_, longestDelay));
}

Ending endingOf(const system::ProcessEnd& end) {
  // A program that crashes at its start must not be started in a tight loop.
  constexpr std::array<int, 7> faults = {SIGABRT, SIGBUS, SIGFPE, SIGILL, SIGSEGV, SIGSYS, SIGTRAP};
  if (end.how != system::ProcessEnd::How::killed) {
    return Ending::failed;
  }
  const bool isFault = std::find(faults.begin(), faults.end(), end.number) != faults.end();
  return isFault ? Ending::failed : Ending::killed;
}

}  // namespace tarnwell::standin
