#pragma once

#include <optional>
#include <string>
#include <utility>

#include "standin/store/Descriptor.h"

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
  explicit FileLock(Descriptor file) : file_(std::move(file)) {}

  Descriptor file_;
};

}  // namespace tarnwell::standin
