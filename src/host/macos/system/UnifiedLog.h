#pragma once

#include "kit/ports/Log.h"

namespace tarnwell::host_macos {

/// The system's log.
class UnifiedLog final : public kit::Log {
 public:
  void error(const std::string& subsystem, const std::string& category, const std::string& message) override;
};

}  // namespace tarnwell::host_macos
