#pragma once

#include <optional>
#include <string>

namespace tarnwell::kit {

/// The application's own entry among the things that the system starts at login (`SMAppService.mainApp`).
class LoginItem {
 public:
  enum class Status { notRegistered = 0, enabled = 1, requiresApproval = 2, notFound = 3 };

  virtual ~LoginItem() = default;

  /// Read from the system each time.
  virtual Status status() const = 0;

  // Each returns why it failed, in words for the log, or nothing.

  virtual std::optional<std::string> registerItem() = 0;
  virtual std::optional<std::string> unregisterItem() = 0;
};

}  // namespace tarnwell::kit
