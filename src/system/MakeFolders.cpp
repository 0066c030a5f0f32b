#include "system/MakeFolders.h"

#include <sys/stat.h>

#include <cerrno>

namespace tarnwell::system {
namespace {

constexpr mode_t folderMode = 0700;

}  // namespace

bool makeFolders(const std::filesystem::path& folder) {
  if (folder.empty() || ::mkdir(folder.c_str(), folderMode) == 0) {
    return true;
  }
  if (errno == EEXIST) {
    return true;
  }
  return errno == ENOENT && folder.has_relative_path() && makeFolders(folder.parent_path()) &&
         (::mkdir(folder.c_str(), folderMode) == 0 || errno == EEXIST);
}

}  // namespace tarnwell::system
