#pragma once

#include <chrono>
#include <filesystem>
#include <optional>
#include <string>

#include "system/base/Result.h"

namespace tarnwell::updateclient {

/// What the updater remembers, a line for each thing: a name, a space, a value. Every read and every write goes to the
/// file, so that two processes see each other's; what is in it under other names stays. A file that is no such text is
/// set aside under another name, which is said on standard error, and counts as empty. Setters return why not.
class UpdaterPreferences {
 public:
  using Time = std::chrono::system_clock::time_point;

  static constexpr std::chrono::seconds usualInterval = std::chrono::hours(24);
  static constexpr std::chrono::seconds shortestInterval = std::chrono::hours(1);
  static constexpr std::chrono::seconds longestInterval = std::chrono::hours(24 * 366);

  /// The file need not be there yet.
  explicit UpdaterPreferences(std::filesystem::path file) : file_(std::move(file)) {}

  /// Nothing while the user was not asked.
  std::optional<bool> automaticChecks() const;
  system::Result<void> setAutomaticChecks(bool checks) const;

  bool automaticDownloads() const;
  system::Result<void> setAutomaticDownloads(bool downloads) const;

  /// When the last check began, to the second.
  std::optional<Time> lastCheck() const;
  system::Result<void> setLastCheck(Time time) const;

  /// Between scheduled checks: at least the shortest, and the usual one instead of what is beyond the longest. Changed
  /// in the file only.
  std::chrono::seconds interval() const;

  /// Empty when none is skipped.
  std::string skippedVersion() const;
  system::Result<void> setSkippedVersion(const std::string& version) const;

  bool hasLaunchedBefore() const;
  system::Result<void> setHasLaunchedBefore() const;

 private:
  std::string value(const char* name) const;
  system::Result<void> setValue(const char* name, const std::string& value) const;

  std::filesystem::path file_;
};

}  // namespace tarnwell::updateclient
