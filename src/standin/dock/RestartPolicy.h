#pragma once

#include <chrono>

namespace tarnwell::standin {

enum class Ending {
  killed,  // by a signal from outside: someone wants a new one
  failed,  // by itself, or by a fault of its own
};

/// How long to wait before a process that ended is started again. One that was killed, however often, and one that had
/// been up for a second are started at once; one that fails at its start makes the wait twice as long each time.
class RestartPolicy {
 public:
  std::chrono::milliseconds delayAfter(Ending ending, std::chrono::milliseconds lifetime);

 private:
  static constexpr std::chrono::milliseconds shortest_{100};
  static constexpr std::chrono::milliseconds longest_{10'000};

  std::chrono::milliseconds next_ = shortest_;
};

/// Tells the two endings apart in a status from waitpid().
Ending endingOf(int waitStatus);

}  // namespace tarnwell::standin
