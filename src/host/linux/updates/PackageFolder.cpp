#include "host/linux/updates/PackageFolder.h"

#include <cstdlib>
#include <system_error>

namespace tarnwell::host_linux::updates {
namespace {

namespace fs = std::filesystem;

fs::path absoluteFrom(const char* variable) {
  const char* value = ::getenv(variable);
  const fs::path path = value == nullptr ? "" : value;
  return path.is_absolute() ? path : fs::path();
}

}  // namespace

Result<fs::path> packageFolder() {
  fs::path base = absoluteFrom("XDG_CACHE_HOME");
  if (base.empty() && !absoluteFrom("HOME").empty()) {
    base = absoluteFrom("HOME") / ".cache";
  }
  if (base.empty()) {
    return Failure{"neither XDG_CACHE_HOME nor HOME names a folder for downloads"};
  }
  return base / "tarnwell" / "updates";
}

void removePackages(const fs::path& folder) {
  std::error_code error;
  // A link could lead to any folder of the user's.
  if (!fs::is_directory(fs::symlink_status(folder, error))) {
    return;
  }
  for (fs::directory_iterator entry(folder, error); !error && entry != fs::directory_iterator();
       entry.increment(error)) {
    std::error_code ignored;
    if (entry->symlink_status(ignored).type() == fs::file_type::regular) {
      fs::remove(entry->path(), ignored);
    }
  }
}

}  // namespace tarnwell::host_linux::updates
