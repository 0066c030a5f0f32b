#include "installation/BaseFolders.h"

#include <cstdlib>

namespace tarnwell::installation {
namespace {

namespace fs = std::filesystem;

fs::path absolutePathIn(const char* variable) {
  const char* value = ::getenv(variable);
  const fs::path path = value == nullptr ? "" : value;
  return path.is_absolute() ? path : fs::path();
}

fs::path baseFolder(const char* variable, const char* belowHome) {
  const fs::path named = absolutePathIn(variable);
  const fs::path home = absolutePathIn("HOME");
  return named.empty() && !home.empty() ? home / belowHome : named;
}

}  // namespace

fs::path configurationFolder() { return baseFolder("XDG_CONFIG_HOME", ".config"); }

fs::path cacheFolder() { return baseFolder("XDG_CACHE_HOME", ".cache"); }

fs::path stateFolder() { return baseFolder("XDG_STATE_HOME", ".local/state"); }

}  // namespace tarnwell::installation
