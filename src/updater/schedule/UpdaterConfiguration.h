#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace tarnwell::updater {

/// What is settled before the updater starts, and stays.
struct UpdaterConfiguration {
  /// Of this build and this system; the folder is left to the caller.
  static UpdaterConfiguration compiledIn();

  /// Whether there is a feed to ask: an address that is no example, and a key.
  bool hasFeed() const;

  std::string feedAddress = {};
  std::string publicKey = {};              // Base64 of 32 bytes.
  std::string runningVersion = {};         // What is compared.
  std::string shownVersion = {};           // What people read.
  std::string systemVersion = {};          // Of the kernel, "6.1.0".
  std::vector<std::string> channels = {};  // Beside the one without a name.
  std::filesystem::path packageFolder = {};
};

}  // namespace tarnwell::updater
