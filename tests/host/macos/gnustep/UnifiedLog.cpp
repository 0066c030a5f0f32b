#include "host/macos/system/UnifiedLog.h"

#include "diagnostics/Console.h"

namespace tarnwell::host_macos {

// The system's own log is written by what only the platform's compiler makes.
void UnifiedLog::error(const std::string& subsystem, const std::string& category, const std::string& message) {
  diagnostics::reportError(subsystem + " " + category + ": " + message);
}

}  // namespace tarnwell::host_macos
