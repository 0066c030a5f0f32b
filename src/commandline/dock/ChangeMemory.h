#pragma once

#include <chrono>
#include <filesystem>
#include <optional>
#include <string>

#include "profile/values/Profile.h"
#include "system/base/Result.h"
#include "system/files/FileLock.h"

namespace tarnwell::commandline {

/// What is kept of changes so that they can be taken back, in a folder of the user's. Those that change settings take
/// turns, so that each knows what was there before it.
class ChangeMemory {
 public:
  /// Of `program`, which the folder is called by. Without a folder for the user's state it is a failure.
  static system::Result<ChangeMemory> ofUser(const std::string& program);

  /// Makes the folder where it is missing, and keeps others waiting for as long as this lives. Waits for its own turn,
  /// for `patience` at most.
  system::Result<void> takeTurn(std::chrono::milliseconds patience);

  /// What the settings of the last change were before it; an error ENOENT where there was no change.
  system::Result<profile::Before> beforeLast() const;

  /// Where that is kept, as `undoText` writes it.
  std::filesystem::path undoFile() const { return folder_ / "undo.json"; }

  /// Keeps all preferences of the Dock, once: the file, or nothing where there is one already.
  system::Result<std::optional<std::filesystem::path>> keepAll(const std::string& list) const;

 private:
  explicit ChangeMemory(std::filesystem::path folder) : folder_(std::move(folder)) {}

  std::filesystem::path folder_;
  std::optional<system::FileLock> turn_;
};

}  // namespace tarnwell::commandline
