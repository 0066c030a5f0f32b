#pragma once

#include <string>

#include "kit/ports/Log.h"

namespace tarnwell::kit {

/// Where a part of the application stands in the system's log.
struct Logger {
  const char* subsystem = "";  ///< Reverse DNS.
  const char* category = "";

  void error(Log& log, const std::string& message) const { log.error(subsystem, category, message); }
};

}  // namespace tarnwell::kit
