#include "updateclient/PackageFolder.h"

#include <system_error>

#include "system/PrivateFolder.h"

namespace tarnwell::updateclient {

namespace fs = std::filesystem;

void removePackages(const fs::path& folder, std::chrono::system_clock::time_point time) {
  // A link could lead to any folder of the user's.
  if (!system::PrivateFolder::open(folder)) {
    return;
  }
  std::error_code ignored;
  fs::directory_iterator entry(folder, ignored);
  for (; entry != fs::directory_iterator(); entry.increment(ignored)) {
    const auto written = std::chrono::file_clock::to_sys(entry->last_write_time(ignored));
    if (written < time) {
      fs::remove_all(entry->path(), ignored);
    }
  }
}

}  // namespace tarnwell::updateclient
