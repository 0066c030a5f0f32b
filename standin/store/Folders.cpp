#include "standin/store/Folders.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "system/Descriptor.h"

namespace tarnwell::standin {

bool makeFolders(const std::string& path) {
  if (::mkdir(path.c_str(), 0700) == 0) {
    return syncFolder(folderOf(path));
  }
  if (errno == EEXIST) {
    return true;
  }
  if (errno != ENOENT || path == folderOf(path) || !makeFolders(folderOf(path))) {
    return false;
  }
  // Another process may have made it meanwhile.
  if (::mkdir(path.c_str(), 0700) != 0 && errno != EEXIST) {
    return false;
  }
  return syncFolder(folderOf(path));
}

bool syncFolder(const std::string& path) {
  const system::Descriptor folder(::open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (!folder) {
    return false;
  }
  // Some file systems have nothing to do here and say EINVAL.
  return ::fsync(folder.number()) == 0 || errno == EINVAL;
}

std::string folderOf(const std::string& path) {
  const std::size_t slash = path.rfind('/');
  if (slash == std::string::npos) {
    return ".";
  }
  return slash == 0 ? "/" : path.substr(0, slash);
}

std::string nameOf(const std::string& path) { return path.substr(path.rfind('/') + 1); }

}  // namespace tarnwell::standin
