#pragma once

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>
#include <string_view>

#include "system/base/Result.h"

namespace tarnwell::updater {

struct Download {
  std::string address = {};
  std::uint64_t maximumLength = 0;  // Bytes; one more ends it with a failure.
  /// For all of it, however fast it goes on; none where it is zero.
  std::chrono::milliseconds limit = {};

  /// What the server is told of us, "Name/1.0".
  std::string userAgent = {};
  /// The authorities that certificates are verified with, in PEM; the system's where it is empty.
  std::filesystem::path authorities = {};
  /// To find the server, to reach it, and to agree on keys.
  std::chrono::seconds connectLimit = std::chrono::seconds(30);
  /// How long it may stay below `leastSpeed`.
  std::chrono::seconds stallLimit = std::chrono::seconds(30);
  long leastSpeed = 1024;  // Bytes a second.
};

/// A failure ends the download with it.
using Received = std::function<system::Result<void>(std::string_view bytes)>;

/// Fetches over HTTPS and nothing else, also where a server redirects, and blocks until that is done. A certificate
/// that cannot be verified ends it. Proxies are those of the environment; nothing is sent that would tell who asks, and
/// nothing is kept. A failure is a sentence for people.
system::Result<void> fetch(const Download& download, const Received& received);

}  // namespace tarnwell::updater
