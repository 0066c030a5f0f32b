#include "installation/FindProgram.h"

#include <unistd.h>

#include <cstdlib>
#include <sstream>
#include <system_error>

namespace tarnwell::installation {

bool isProgram(const std::filesystem::path& path) {
  std::error_code ignored;
  return std::filesystem::is_regular_file(path, ignored) && ::access(path.c_str(), X_OK) == 0;
}

bool isFound(const std::string& name) {
  if (name.find('/') != std::string::npos) {
    return name.front() == '/' && isProgram(name);
  }
  const char* path = std::getenv("PATH");
  std::istringstream folders(path == nullptr ? "" : path);
  for (std::string folder; std::getline(folders, folder, ':');) {
    if (isProgram(std::filesystem::path(folder) / name)) {
      return true;
    }
  }
  return false;
}

}  // namespace tarnwell::installation
