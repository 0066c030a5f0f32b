#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "host/linux/Result.h"

namespace tarnwell::host_linux {

/// The updater's switches, in a file of "key=value" lines. Every read and every write goes to the file; lines that are
/// not ours stay.
class UpdaterPreferences {
 public:
  /// The file need not be there yet.
  explicit UpdaterPreferences(std::filesystem::path file) : file_(std::move(file)) {}

  /// In the user's configuration folder.
  static UpdaterPreferences ofUser();

  /// False for a key that is not there, and for a file that cannot be read.
  bool isOn(const std::string& key) const;
  /// Returns why not.
  std::optional<Failure> set(const std::string& key, bool on) const;

  static constexpr const char* checksKey = "SUEnableAutomaticChecks";
  static constexpr const char* downloadsKey = "SUAutomaticallyUpdate";

 private:
  std::filesystem::path file_;
};

}  // namespace tarnwell::host_linux
