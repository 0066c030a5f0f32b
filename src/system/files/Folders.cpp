#include "system/files/Folders.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "system/base/Descriptor.h"
#include "system/files/Sync.h"

namespace tarnwell::system {
namespace {

constexpr mode_t newFolderMode = 0700;

// Another process may have made it meanwhile.
bool makeFolder(const std::filesystem::path& folder) {
  return ::mkdir(folder.c_str(), newFolderMode) == 0 ? syncFolder(folderOf(folder)) : errno == EEXIST;
}

}  // namespace

bool makeFolders(const std::filesystem::path& folder) {
  if (folder.empty() || makeFolder(folder)) {
    return true;
  }
  return errno == ENOENT && folder.has_relative_path() && makeFolders(folder.parent_path()) && makeFolder(folder);
}

bool syncFolder(const std::filesystem::path& folder) {
  const Descriptor opened(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  // Some file systems have nothing to do here and say EINVAL.
  return opened && (sync(opened.number()) || errno == EINVAL);
}

std::filesystem::path folderOf(const std::filesystem::path& path) {
  return path.has_parent_path() ? path.parent_path() : ".";
}

}  // namespace tarnwell::system
