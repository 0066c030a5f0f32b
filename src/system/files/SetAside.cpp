#include "system/files/SetAside.h"

#include <unistd.h>

#include <cerrno>
#include <string>

namespace tarnwell::system {

Result<std::filesystem::path> setAside(const std::filesystem::path& path) {
  constexpr int mostNames = 1000;
  for (int number = 1; number <= mostNames; ++number) {
    std::filesystem::path aside = path.string() + ".damaged-" + std::to_string(number);
    if (::link(path.c_str(), aside.c_str()) == 0) {
      return aside;
    }
    if (errno != EEXIST) {
      break;
    }
  }
  return systemFailure("cannot set aside " + path.string());
}

}  // namespace tarnwell::system
