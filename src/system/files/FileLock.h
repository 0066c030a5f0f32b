#pragma once

#include <chrono>
#include <filesystem>
#include <utility>

#include "system/base/Descriptor.h"
#include "system/base/Result.h"

namespace tarnwell::system {

/// Keeps every other process that asks for the same lock away as long as it lives. The system lets go of it when the
/// process ends, however it ends; no child inherits it.
class FileLock {
 public:
  static constexpr std::chrono::milliseconds unlimited = std::chrono::milliseconds::max();

  /// On a file made for the purpose, which is made where it is missing (mode 0600), though its folder is not. Waits for
  /// `patience`, at most, while another process has it; that is the error EWOULDBLOCK of a failure "cannot lock PATH".
  static Result<FileLock> take(const std::filesystem::path& file, std::chrono::milliseconds patience);

  /// The same on a folder that is there, where no file is to be left.
  static Result<FileLock> takeFolder(const std::filesystem::path& folder, std::chrono::milliseconds patience);

 private:
  explicit FileLock(Descriptor file) : file_(std::move(file)) {}

  Descriptor file_;
};

}  // namespace tarnwell::system
