#pragma once

#include <chrono>

#include "system/processes/Process.h"

namespace tarnwell::standin {

enum class Ending {
  killed,  // by a signal from outside: another process wants a new one
  failed,  // by itself, or by a fault of its own
};

inline constexpr std::chrono::milliseconds shortestDelay{100};
inline constexpr std::chrono::milliseconds longestDelay{10'000};

/// How long to wait before a process that ended is started again. One that was killed, however often, and one that had
/// been up for a second are started at once; one that fails at its start makes the wait twice as long each time.
class RestartPolicy {
 public:
  std::chrono::milliseconds delayAfter(Ending ending, std::chrono::milliseconds lifetime);

 private:
  std::chrono::milliseconds next_ = shortestDelay;
};

/// Tells the two endings apart. One of which nothing is known has failed.
Ending endingOf(const system::ProcessEnd& end);

}  // namespace tarnwell::standin
