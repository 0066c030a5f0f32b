#include "diagnostics/Fault.h"

#include <cstdlib>
#include <string>

#include "diagnostics/Console.h"

namespace tarnwell::diagnostics {

void fault(std::string_view message) {
  printErrorLine("tarnwell: " + std::string(message));
  std::abort();
}

}  // namespace tarnwell::diagnostics
