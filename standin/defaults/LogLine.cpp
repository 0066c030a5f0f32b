#include "standin/defaults/LogLine.h"

#include <unistd.h>

#include <string>

#include "diagnostics/Console.h"
#include "standin/store/Timestamp.h"

namespace tarnwell::standin {

void logLine(std::string_view message) {
  std::string line = timestamp() + " defaults[" + std::to_string(::getpid()) + ":" + std::to_string(::gettid()) + "] ";
  line.append(message);
  diagnostics::printErrorLine(line);
}

}  // namespace tarnwell::standin
