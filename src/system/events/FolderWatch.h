#pragma once

#include <chrono>
#include <string>

#include "system/base/Descriptor.h"

namespace tarnwell::system {

/// Sleeps until a file in a folder has been written. For systems without macOS: no host needs it.
class FolderWatch {
 public:
  using Time = std::chrono::steady_clock::time_point;

  /// Whatever is written from now on counts. A folder that cannot be watched is one in which nothing happens.
  explicit FolderWatch(const std::string& folder);

  /// True once something was written since the call before; false when `end` has come first.
  bool wait(Time end) const;

 private:
  Descriptor events_;
};

}  // namespace tarnwell::system
