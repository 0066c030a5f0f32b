#include "system/PrivateFolder.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>
#include <utility>

#include "system/Folders.h"

namespace tarnwell::system {
namespace {

namespace fs = std::filesystem;

constexpr mode_t ownerAlone = 0700;
constexpr mode_t others = 0077;

Failure folderFailure(const std::string& what, const fs::path& folder) {
  return {what + " the folder " + folder.string() + ": " + std::generic_category().message(errno)};
}

}  // namespace

PrivateFolder::PrivateFolder(fs::path path, Descriptor folder) : path_(std::move(path)), folder_(std::move(folder)) {}

Result<PrivateFolder> PrivateFolder::open(const fs::path& path) {
  Descriptor folder =
      aboveStandardStreams(Descriptor(::open(path.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC)));
  struct stat status = {};
  if (!folder || ::fstat(folder.number(), &status) != 0) {
    return folderFailure("cannot enter", path);
  }
  if (status.st_uid != ::geteuid()) {
    return Failure{"the folder " + path.string() + " belongs to another user"};
  }
  return PrivateFolder(path, std::move(folder));
}

Result<PrivateFolder> PrivateFolder::make(const fs::path& path) {
  if (!makeFolders(path)) {
    return folderFailure("cannot make", path);
  }
  auto folder = open(path);
  if (!folder) {
    return folder;
  }
  struct stat status = {};
  if (::fchmod(folder->descriptor(), ownerAlone) != 0 || ::fstat(folder->descriptor(), &status) != 0) {
    return folderFailure("cannot keep others out of", path);
  }
  // Some file systems take a mode and forget it.
  if ((status.st_mode & others) != 0) {
    return Failure{"others can enter the folder " + path.string()};
  }
  return folder;
}

bool PrivateFolder::leadsTo(const std::string& name, int file) const {
  struct stat found = {};
  struct stat meant = {};
  return ::stat((path_ / name).c_str(), &found) == 0 && ::fstat(file, &meant) == 0 && found.st_dev == meant.st_dev &&
         found.st_ino == meant.st_ino;
}

}  // namespace tarnwell::system
