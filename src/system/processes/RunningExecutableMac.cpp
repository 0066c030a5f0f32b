#include <mach-o/dyld.h>

#include <string>
#include <system_error>

#include "system/processes/RunningExecutable.h"

namespace tarnwell::system {

Result<std::filesystem::path> runningExecutable() {
  std::uint32_t size = 0;
  ::_NSGetExecutablePath(nullptr, &size);
  std::string path(size, '\0');
  ::_NSGetExecutablePath(path.data(), &size);
  std::error_code error;
  auto found = std::filesystem::canonical(path.c_str(), error);
  if (error) {
    return Failure{"cannot tell where the program lies: " + error.message()};
  }
  return found;
}

}  // namespace tarnwell::system
