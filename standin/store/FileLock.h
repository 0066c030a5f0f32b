#pragma once

#include <optional>
#include <string>
#include <utility>

#include "system/Descriptor.h"

namespace tarnwell::standin {

enum class LockWait { untilFree, never };

/// An exclusive lock on a file made for the purpose. The kernel lets go of it when the process ends, however it ends;
/// no child inherits it.
class FileLock {
 public:
  /// Makes the file when missing (mode 0600; its folder must exist). Nothing, with errno set, when that fails;
  /// EWOULDBLOCK says that another process has the lock.
  static std::optional<FileLock> acquire(const std::string& path, LockWait wait);

 private:
  explicit FileLock(system::Descriptor file) : file_(std::move(file)) {}

  system::Descriptor file_;
};

}  // namespace tarnwell::standin
