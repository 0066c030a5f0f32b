#pragma once

#include "kit/ports/LoginItem.h"

namespace tarnwell::host_macos {

/// This application among the login items of the system's settings. It has to be a bundle for that.
class ServiceLoginItem final : public kit::LoginItem {
 public:
  Status status() const override;
  std::optional<std::string> registerItem() override;
  std::optional<std::string> unregisterItem() override;
};

}  // namespace tarnwell::host_macos
