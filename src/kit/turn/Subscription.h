#pragma once

#include <memory>
#include <utility>

#include "kit/turn/Action.h"

namespace tarnwell::kit {

/// Ends what it stands for when it goes, or when `invalidate` is called.
class Subscription {
 public:
  Subscription() = default;
  explicit Subscription(Action end) : end_(std::move(end)) {}
  Subscription(const Subscription&) = delete;
  Subscription& operator=(const Subscription&) = delete;
  Subscription(Subscription&& other) noexcept : end_(std::exchange(other.end_, nullptr)) {}
  Subscription& operator=(Subscription&& other) noexcept {
    if (this != &other) {
      invalidate();
      end_ = std::exchange(other.end_, nullptr);
    }
    return *this;
  }
  ~Subscription() { invalidate(); }

  void invalidate() {
    if (const Action end = std::exchange(end_, nullptr)) {
      end();
    }
  }

 private:
  Action end_;
};

}  // namespace tarnwell::kit
