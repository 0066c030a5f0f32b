#include "diagnostics/Fault.h"

#include <cstdlib>

#include "diagnostics/Console.h"

namespace tarnwell::diagnostics {

void fault(std::string_view message) {
  reportError(message);
  std::abort();
}

}  // namespace tarnwell::diagnostics
