#include "system/files/PrivateFolder.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>
#include <utility>

#include "system/files/Folders.h"

namespace tarnwell::system {
namespace {

namespace fs = std::filesystem;

constexpr mode_t ownerAlone = 0700;
constexpr mode_t others = 0077;

/// Whether no other user can rename what is in a folder: it is ours or the system's, and no others may write to it but
/// our own group, unless a user can rename his own files alone there (a sticky folder).
bool isSafeAncestor(const struct stat& status) {
  const bool isOwned = status.st_uid == 0 || status.st_uid == ::geteuid();
  const bool isSticky = (status.st_mode & S_ISVTX) != 0;
  const bool isShared = (status.st_mode & S_IWOTH) != 0 ||
                        ((status.st_mode & S_IWGRP) != 0 && status.st_gid != 0 && status.st_gid != ::getegid());
  return isOwned && (isSticky || !isShared);
}

/// The folder above `path`, at any height, that another user could put another one in the place of; empty for none.
fs::path unsafeAncestorOf(const fs::path& path) {
  std::error_code error;
  for (fs::path folder = fs::canonical(path, error).parent_path(); !error; folder = folder.parent_path()) {
    struct stat status = {};
    if (::stat(folder.c_str(), &status) != 0 || !isSafeAncestor(status)) {
      return folder;
    }
    if (folder == folder.root_path()) {
      return {};
    }
  }
  return path;
}

}  // namespace

PrivateFolder::PrivateFolder(fs::path path, Descriptor folder) : path_(std::move(path)), folder_(std::move(folder)) {}

Result<PrivateFolder> PrivateFolder::open(const fs::path& named) {
  // Of a folder above, a link could be made to lead elsewhere later.
  std::error_code error;
  const fs::path above = fs::canonical(named.parent_path(), error);
  const fs::path path = error ? named : above / named.filename();
  Descriptor folder =
      aboveStandardStreams(Descriptor(::open(path.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC)));
  struct stat status = {};
  if (!folder || ::fstat(folder.number(), &status) != 0) {
    return systemFailure("cannot enter the folder " + path.string());
  }
  if (status.st_uid != ::geteuid()) {
    return Failure{"the folder " + path.string() + " belongs to another user"};
  }
  if (const fs::path ancestor = unsafeAncestorOf(path); !ancestor.empty()) {
    return Failure{"other users can change the folder " + ancestor.string()};
  }
  return PrivateFolder(path, std::move(folder));
}

Result<PrivateFolder> PrivateFolder::make(const fs::path& path) {
  if (!makeFolders(path)) {
    return systemFailure("cannot make the folder " + path.string());
  }
  auto folder = open(path);
  if (!folder) {
    return folder;
  }
  struct stat status = {};
  if (::fchmod(folder->descriptor(), ownerAlone) != 0 || ::fstat(folder->descriptor(), &status) != 0) {
    return systemFailure("cannot keep others out of the folder " + path.string());
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
