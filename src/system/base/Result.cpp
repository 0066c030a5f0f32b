#include "system/base/Result.h"

#include <cerrno>
#include <system_error>

namespace tarnwell::system {

Failure systemFailure(const std::string& what) {
  const int error = errno;
  return {.message = what + ": " + std::generic_category().message(error), .error = error};
}

}  // namespace tarnwell::system
