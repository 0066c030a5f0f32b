#pragma once

#include <optional>
#include <string>

#include "host/headless/Journal.h"
#include "kit/ports/LoginItem.h"

namespace tarnwell::host_headless {

/// A registration that exists in memory. It does what a test tells it to, and notes each change that was asked for.
class HeadlessLoginItem final : public kit::LoginItem {
 public:
  /// How the system answers from now on.
  struct Answers {
    std::optional<std::string> registerFailure = std::nullopt;
    std::optional<std::string> unregisterFailure = std::nullopt;
    Status onceRegistered = Status::enabled;
  };

  explicit HeadlessLoginItem(Journal& journal) : journal_(journal) {}

  Answers& answers() { return answers_; }
  /// Another program changes the registration.
  void setStatus(Status status) { status_ = status; }

  Status status() const override { return status_; }
  std::optional<std::string> registerItem() override {
    return answer("register", answers_.registerFailure, answers_.onceRegistered);
  }
  std::optional<std::string> unregisterItem() override {
    return answer("unregister", answers_.unregisterFailure, Status::notRegistered);
  }

 private:
  std::optional<std::string> answer(const std::string& asked, const std::optional<std::string>& failure, Status then) {
    journal_.note("login item: " + asked);
    status_ = failure ? status_ : then;
    return failure;
  }

  Journal& journal_;
  Answers answers_;
  Status status_ = Status::notRegistered;
};

}  // namespace tarnwell::host_headless
