#pragma once

#include <chrono>
#include <string>
#include <utility>
#include <vector>

#include "kit/turn/Action.h"
#include "updater/transfer/Transport.h"

namespace tarnwell::updater {

/// A network on which things happen when the test says so. Holds to what a transport promises.
class FakeTransport final : public Transport {
 public:
  std::unique_ptr<Transfer> get(const Request& request, Received received, Finished finished) override {
    addresses.push_back(request.address);
    limits.push_back(request.limit);
    maximumLength_ = request.maximumLength;
    line_ = std::make_shared<Line>(Line{std::move(received), std::move(finished)});
    return std::make_unique<FakeTransfer>(line_);
  }

  /// Of the newest request, as long as it is held.
  bool isBusy() const { return line_ != nullptr && line_->finished != nullptr; }

  /// Hands over bytes of the answer; more than was asked for ends it.
  void deliver(std::string_view bytes) {
    const auto line = line_;
    delivered_ += bytes.size();
    if (!isBusy()) {
      return;
    }
    if (delivered_ > maximumLength_) {
      finish(system::Failure{"The server sent more than it should."});
    } else if (const Received received = line->received; !received(bytes)) {
      finish();
    }
  }
  void finish(std::optional<system::Failure> failure = std::nullopt) {
    delivered_ = 0;
    if (const auto line = line_; isBusy()) {
      const Finished finished = std::exchange(line->finished, nullptr);
      finished(std::move(failure));
      if (afterwards) {
        afterwards();
      }
    }
  }
  /// Delivers everything and finishes.
  void answer(std::string_view bytes) {
    deliver(bytes);
    finish();
  }

  std::vector<std::string> addresses = {};
  /// How long each request may take.
  std::vector<std::chrono::milliseconds> limits = {};
  /// What the event loop does next when something has finished.
  kit::Action afterwards = {};

 private:
  struct Line {
    Received received;
    Finished finished;
  };

  class FakeTransfer final : public Transfer {
   public:
    explicit FakeTransfer(std::shared_ptr<Line> line) : line_(std::move(line)) {}
    ~FakeTransfer() override { *line_ = {}; }

   private:
    std::shared_ptr<Line> line_;
  };

  std::shared_ptr<Line> line_;
  std::uint64_t maximumLength_ = 0;
  std::uint64_t delivered_ = 0;
};

}  // namespace tarnwell::updater
