#include "system/processes/RunningExecutable.h"

#include <string>
#include <string_view>
#include <system_error>

namespace tarnwell::system {

Result<std::filesystem::path> runningExecutable() {
  constexpr std::string_view removed = " (deleted)";
  std::error_code error;
  std::string path = std::filesystem::read_symlink("/proc/self/exe", error).string();
  if (error) {
    return Failure{"cannot tell where the program lies: " + error.message()};
  }
  if (path.ends_with(removed) && !std::filesystem::exists(path, error)) {
    path.resize(path.size() - removed.size());
  }
  return path;
}

}  // namespace tarnwell::system
