#include "system/base/Fault.h"

#include <string>
#include <system_error>

#include "diagnostics/Fault.h"

namespace tarnwell::system {

void fault(std::string_view action, int error) {
  diagnostics::fault("cannot " + std::string(action) + ": " + std::generic_category().message(error));
}

}  // namespace tarnwell::system
