#pragma once

#include <sys/types.h>

#include <map>
#include <vector>

#include "system/Descriptor.h"

namespace tarnwell::system {

/// Knows the children that have not been seen to end yet, and lets none of them stay a zombie, without waiting, without
/// a thread and without touching SIGCHLD, which belongs to the whole process.
class ChildReaper {
 public:
  ChildReaper();

  /// Readable when a watched child has ended.
  int descriptor() const { return events_.number(); }

  /// Takes over a child. If the system cannot watch it now, its end is looked for at each later call.
  void watch(pid_t child);

  /// Reaps children that have ended, a bounded number a call; the rest keeps the descriptor readable.
  void reap();

 private:
  bool tryWatch(pid_t child);
  void reapUnwatched();

  Descriptor events_;
  std::map<int, Descriptor> watched_;
  std::vector<pid_t> unwatched_;
};

}  // namespace tarnwell::system
