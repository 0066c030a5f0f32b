#include "host/linux/start/RunningAppImage.h"

#include <algorithm>
#include <cstdlib>
#include <system_error>

namespace tarnwell::host_linux {
namespace {

namespace fs = std::filesystem;

fs::path realPathFrom(const char* variable) {
  const char* value = ::getenv(variable);
  std::error_code error;
  const fs::path path = value == nullptr ? fs::path() : fs::canonical(value, error);
  return error ? fs::path() : path;
}

bool isWithin(const fs::path& path, const fs::path& folder) {
  return std::mismatch(folder.begin(), folder.end(), path.begin(), path.end()).first == folder.end();
}

}  // namespace

std::optional<fs::path> runningAppImage(const fs::path& executable) {
  const fs::path image = realPathFrom("APPIMAGE");
  const fs::path mounted = realPathFrom("APPDIR");
  std::error_code error;
  if (image.empty() || mounted.empty() || !fs::is_regular_file(image, error) || !isWithin(executable, mounted)) {
    return std::nullopt;
  }
  return image;
}

fs::path programToStart(const fs::path& executable) { return runningAppImage(executable).value_or(executable); }

}  // namespace tarnwell::host_linux
