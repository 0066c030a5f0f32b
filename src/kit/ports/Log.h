#pragma once

#include <string>

namespace tarnwell::kit {

/// The system's log.
class Log {
 public:
  virtual ~Log() = default;

  virtual void error(const std::string& subsystem, const std::string& category, const std::string& message) = 0;
};

/// Where a part of the application stands in it.
struct Logger {
  const char* subsystem = "";  ///< Reverse DNS.
  const char* category = "";

  void error(Log& log, const std::string& message) const { log.error(subsystem, category, message); }
};

}  // namespace tarnwell::kit
