#pragma once

#include <chrono>
#include <filesystem>
#include <memory>
#include <string>

#include "updater/transfer/Transport.h"

namespace tarnwell::updater {

class CurlLoop;

/// Fetches over HTTPS and nothing else, also where a server redirects. A certificate that cannot be verified ends a
/// transfer. Proxies are those of the environment; nothing is sent that would tell who asks, and nothing is kept.
class CurlTransport final : public Transport {
 public:
  struct Settings {
    /// The network library, as the dynamic linker knows it. Where it cannot be opened every transfer fails.
    std::string library = "libcurl.so.4";
    /// What the server is told of us, "Tarnwell/1.0".
    std::string userAgent = {};
    /// The authorities that certificates are verified with, in PEM; the system's where it is empty.
    std::filesystem::path authorities = {};
    /// To find the server, to reach it, and to agree on keys.
    std::chrono::seconds connectLimit = std::chrono::seconds(30);
    /// How long a transfer may stay below `leastSpeed`.
    std::chrono::seconds stallLimit = std::chrono::seconds(30);
    /// Bytes a second.
    long leastSpeed = 1024;
  };

  explicit CurlTransport(Settings settings);
  ~CurlTransport() override;

  std::unique_ptr<Transfer> get(const Request& request, Received received, Finished finished) override;

  /// Readable when `dispatch` has something to do. The same for the transport's whole life.
  int descriptor() const;
  /// Goes on with all transfers, without blocking. What it calls may end the transport.
  void dispatch();

 private:
  Settings settings_;
  std::shared_ptr<CurlLoop> loop_;
};

}  // namespace tarnwell::updater
