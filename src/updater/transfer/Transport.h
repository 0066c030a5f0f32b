#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "system/Result.h"

namespace tarnwell::updater {

/// Fetches over the network without blocking. Everything is called on the main thread, from the event loop.
class Transport {
 public:
  struct Request {
    std::string address = {};
    std::uint64_t maximumLength = 0;  // Bytes; one more ends the transfer with a failure.
    /// For all of it, however fast it goes on; none where it is zero.
    std::chrono::milliseconds limit = {};
  };

  /// Under way as long as it lives and has not finished. Destroying it cancels it: nothing is called any more. It may
  /// be destroyed by what it calls.
  class Transfer {
   public:
    virtual ~Transfer() = default;
  };

  /// Returns false to end the transfer, which then finishes with no failure of its own.
  using Received = std::function<bool(std::string_view bytes)>;
  using Finished = std::function<void(std::optional<system::Failure>)>;

  virtual ~Transport() = default;

  /// Calls neither function before it has returned, and `finished` once.
  virtual std::unique_ptr<Transfer> get(const Request& request, Received received, Finished finished) = 0;
};

}  // namespace tarnwell::updater
