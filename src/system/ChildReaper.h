#pragma once

#include <chrono>
#include <functional>
#include <map>
#include <vector>

#include "system/Process.h"

namespace tarnwell::system {

/// Knows the children that have not been seen to end yet, and lets none of them stay a zombie, without waiting, without
/// a thread and without touching SIGCHLD, which belongs to the whole process.
class ChildReaper {
 public:
  using Ended = std::function<void(const ProcessEnd&)>;

  ChildReaper();

  /// Readable when a watched child has ended.
  int descriptor() const { return events_.number(); }
  /// Whether no child is left whose end was not seen.
  bool isIdle() const { return watched_.empty() && unwatched_.empty(); }

  /// Blocks until a watched child has ended. False when `end` has come first.
  bool waitForEnd(std::chrono::steady_clock::time_point end) const { return events_.waitUntilReadable(end); }

  /// Takes over a child. If the system cannot watch it now, its end is looked for at each later call. `ended` is called
  /// once, from such a call, and from `reap` as the last thing of it: it may end the reaper.
  void watch(Process child, Ended ended = {});

  /// Reaps children that have ended, a bounded number a call; the rest keeps the descriptor readable.
  void reap();

 private:
  struct Child {
    Descriptor descriptor;
    Process process;
    Ended ended;
  };
  using Ends = std::vector<std::pair<Ended, ProcessEnd>>;

  bool tryWatch(Child& child);
  Ends unwatchedEnds();
  static void tell(const Ends& ends);

  Descriptor events_;
  std::map<int, Child> watched_;
  std::vector<Child> unwatched_;
};

}  // namespace tarnwell::system
