#include "updater/package/PackageFolder.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "host/linux/BaseFolders.h"
#include "system/PrivateFolder.h"

namespace tarnwell::updater {

namespace fs = std::filesystem;

namespace {

std::chrono::system_clock::time_point timeOf(const struct stat& status) {
  const auto sinceEpoch =
      std::chrono::seconds(status.st_mtim.tv_sec) + std::chrono::nanoseconds(status.st_mtim.tv_nsec);
  return std::chrono::system_clock::time_point(sinceEpoch);
}

}  // namespace

system::Result<fs::path> packageFolder() {
  const fs::path base = host_linux::cacheFolder();
  if (base.empty()) {
    return system::Failure{"neither XDG_CACHE_HOME nor HOME names a folder for downloads"};
  }
  return base / "tarnwell" / "updates";
}

void removePackages(const fs::path& folder, std::chrono::system_clock::time_point time) {
  // A link could lead to any folder of the user's.
  const auto found = system::PrivateFolder::open(folder);
  DIR* entries = found ? ::fdopendir(::fcntl(found->descriptor(), F_DUPFD_CLOEXEC, 0)) : nullptr;
  if (entries == nullptr) {
    return;
  }
  while (const dirent* entry = ::readdir(entries)) {
    struct stat status = {};
    const bool isFile =
        ::fstatat(found->descriptor(), entry->d_name, &status, AT_SYMLINK_NOFOLLOW) == 0 && S_ISREG(status.st_mode);
    if (isFile && timeOf(status) < time) {
      ::unlinkat(found->descriptor(), entry->d_name, 0);
    }
  }
  ::closedir(entries);
}

}  // namespace tarnwell::updater
