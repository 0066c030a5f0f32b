#pragma once

#include <string>

namespace tarnwell::kit {

/// The system's log.
class Log {
 public:
  virtual ~Log() = default;

  virtual void error(const std::string& subsystem, const std::string& category, const std::string& message) = 0;
};

}  // namespace tarnwell::kit
