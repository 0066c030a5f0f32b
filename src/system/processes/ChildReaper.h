#pragma once

#include <chrono>
#include <functional>
#include <map>
#include <vector>

#include "system/events/DescriptorSet.h"
#include "system/processes/Process.h"

namespace tarnwell::system {

/// Knows the children that have not been seen to end yet, and lets none of them stay a zombie, without waiting, without
/// a thread and without touching SIGCHLD, which belongs to the whole process.
class ChildReaper {
 public:
  using Ended = std::function<void(const ProcessEnd&)>;

  /// Readable when a watched child has ended.
  int descriptor() const { return ending_.descriptor().number(); }
  /// Whether no child is left whose end was not seen.
  bool isIdle() const { return watched_.empty() && unwatched_.empty(); }

  /// Blocks until a watched child has ended. False when `end` has come first.
  bool waitForEnd(std::chrono::steady_clock::time_point end) const {
    return ending_.descriptor().waitUntilReadable(end);
  }

  /// Takes over a child. If the system cannot watch it now, its end is looked for at each later call. `ended` is called
  /// once, from such a call, and from `reap` as the last thing of it: it may end the reaper.
  void watch(Process child, Ended ended = {});

  /// Reaps children that have ended, a bounded number a call; the rest keeps the descriptor readable.
  void reap();

 private:
  struct Child {
    Descriptor ending;  // readable once it has ended
    Process process;
    Ended ended;
  };
  using Ends = std::vector<std::pair<Ended, ProcessEnd>>;

  bool tryWatch(Child& child);
  Ends unwatchedEnds();
  static void tell(const Ends& ends);

  DescriptorSet ending_ = DescriptorSet("watch children");
  std::map<int, Child> watched_;  // by that descriptor
  std::vector<Child> unwatched_;
};

}  // namespace tarnwell::system
