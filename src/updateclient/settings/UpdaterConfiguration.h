#pragma once

#include <chrono>
#include <filesystem>
#include <string>
#include <vector>

namespace tarnwell::updateclient {

/// What is settled before the updater starts, and stays.
struct UpdaterConfiguration {
  /// Of this build and this system; files and folders are left to the caller.
  static UpdaterConfiguration compiledIn();

  /// Whether there is a feed to ask: an address that is no example, and a key.
  bool hasFeed() const;

  std::string feedAddress = {};
  std::string publicKey = {};              // Base64 of 32 bytes.
  std::string userAgent = {};              // What servers are told of us, "Name/1.0".
  std::string runningVersion = {};         // What is compared.
  std::string shownVersion = {};           // What people read.
  std::string systemVersion = {};          // Of the kernel, "6.1.0".
  std::vector<std::string> channels = {};  // Beside the one without a name.
  /// How long a server may send next to nothing.
  std::chrono::seconds stallLimit = std::chrono::seconds(30);
  std::filesystem::path packageFolder = {};
  /// What an update may take the place of: the AppImage that this program runs from; empty for nothing.
  std::filesystem::path program = {};
};

}  // namespace tarnwell::updateclient
