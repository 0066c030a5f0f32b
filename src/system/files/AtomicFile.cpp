#include "system/files/AtomicFile.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <functional>
#include <system_error>

#include "system/files/Folders.h"
#include "system/files/Sync.h"
#include "system/files/UnnamedFile.h"

namespace tarnwell::system {
namespace {

constexpr mode_t unfinishedMode = 0600;
constexpr mode_t permissionBits = 0777;

bool isNamed(const Descriptor& file, int folder, const std::string& name) {
  struct stat opened = {};
  struct stat named = {};
  return ::fstat(file.number(), &opened) == 0 && ::fstatat(folder, name.c_str(), &named, AT_SYMLINK_NOFOLLOW) == 0 &&
         opened.st_ino == named.st_ino;
}

// Not before the process that gave the name has ended or moved its file on: it has the file locked until then. Where
// the file system has no locks, that process finds its name gone, and says so.
void removeLeftover(int folder, const std::string& name) {
  const Descriptor left(::openat(folder, name.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
  if (left) {
    ::flock(left.number(), LOCK_EX);
  }
  // What cannot be opened, a link for one, is no file of ours.
  if (left ? isNamed(left, folder, name) : errno != ENOENT) {
    ::unlinkat(folder, name.c_str(), 0);
  }
}

}  // namespace

std::filesystem::path AtomicFile::passingPath(const std::filesystem::path& target) {
  // Not the name itself, which may be as long as names can be.
  const std::size_t number = std::hash<std::string>()(target.filename().string());
  return folderOf(target) / (".draft-" + std::to_string(number));
}

AtomicFile::AtomicFile(const std::filesystem::path& target, mode_t newMode)
    : AtomicFile(Descriptor(::open(folderOf(target).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)), target, newMode) {}

AtomicFile::AtomicFile(Descriptor folder, const std::filesystem::path& target, mode_t newMode)
    : path_(target.string()),
      newMode_(newMode),
      folder_(std::move(folder)),
      target_(target.filename().string()),
      passing_(passingPath(target).filename().string()),
      folderError_(errno) {}

AtomicFile::~AtomicFile() {
  if (isNamed_) {
    removeRemains();
  }
}

void AtomicFile::removeRemains() const { ::unlinkat(folder_.number(), passing_.c_str(), 0); }

Failure AtomicFile::failure(const std::string& what) const { return systemFailure("cannot " + what + " " + path_); }

Result<void> AtomicFile::write(std::string_view bytes) {
  if (!create()) {
    return failure("make a file beside");
  }
  if (!file_.writeAll(bytes) || !finish()) {
    return failure("write");
  }
  errno = EIO;  // for bytes that are other ones
  return holds(bytes) ? Result<void>() : failure("read back what was written for");
}

Result<void> AtomicFile::copy(int source) {
  if (!create()) {
    return failure("make a file beside");
  }
  return file_.copyFrom(source) && finish() ? Result<void>() : failure("write");
}

bool AtomicFile::create() {
  if (!folder_) {
    errno = folderError_;
    return false;
  }
  const int folder = folder_.number();
  file_ = openUnnamedFile(folder, unfinishedMode);
  if (!file_) {
    removeLeftover(folder, passing_);
    file_ = Descriptor(
        ::openat(folder, passing_.c_str(), O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, unfinishedMode));
    isNamed_ = static_cast<bool>(file_);
  }
  if (file_) {
    ::flock(file_.number(), LOCK_EX);
  }
  return static_cast<bool>(file_);
}

bool AtomicFile::finish() {
  struct stat old = {};
  const bool isFile =
      ::fstatat(folder_.number(), target_.c_str(), &old, AT_SYMLINK_NOFOLLOW) == 0 && S_ISREG(old.st_mode);
  return ::fchmod(file_.number(), isFile ? old.st_mode & permissionBits : newMode_) == 0 && sync(file_.number());
}

bool AtomicFile::holds(std::string_view bytes) const {
  return ::lseek(file_.number(), 0, SEEK_SET) == 0 && file_.readAll() == bytes;
}

bool AtomicFile::takeName() {
  // Another process that writes to the same target may come in between, but not for ever.
  for (int attempt = 0; !isNamed_ && attempt < 1000; ++attempt) {
    removeLeftover(folder_.number(), passing_);
    isNamed_ = nameFile(file_.number(), folder_.number(), passing_);
    if (!isNamed_ && errno != EEXIST) {
      break;
    }
  }
  return isNamed_;
}

Result<void> AtomicFile::place() {
  const int folder = folder_.number();
  if (isNamed_ || !nameFile(file_.number(), folder, target_)) {
    if (!takeName() || ::renameat(folder, passing_.c_str(), folder, target_.c_str()) != 0) {
      return failure("replace");
    }
    isNamed_ = false;
  }
  // The new name survives a power failure only once the folder is on the disk, which not every file system can promise.
  sync(folder);
  return {};
}

// The old file waits under the passing name until the new one is safe, so that it can come back.
Result<void> AtomicFile::commit() {
  const Swap swap = takeName() ? swapIn() : Swap::failed;
  if (swap == Swap::failed) {
    return failure("replace");
  }
  // Some file systems have nothing to do here and say EINVAL.
  if (sync(folder_.number()) || errno == EINVAL) {
    return {};
  }
  Failure unsafe = failure("sync the folder of");
  swapBack(swap);
  return unsafe;
}

AtomicFile::Swap AtomicFile::swapIn() {
  const int folder = folder_.number();
  if (exchangeNames(folder, passing_, target_)) {
    return Swap::exchanged;
  }
  // Some file systems cannot exchange; there is no way back then.
  const Swap swap = errno == ENOENT ? Swap::placed : Swap::replaced;
  if (::renameat(folder, passing_.c_str(), folder, target_.c_str()) != 0) {
    return Swap::failed;
  }
  isNamed_ = false;
  return swap;
}

void AtomicFile::swapBack(Swap swap) {
  if (swap == Swap::exchanged) {
    exchangeNames(folder_.number(), passing_, target_);
  } else if (swap == Swap::placed) {
    ::unlinkat(folder_.number(), target_.c_str(), 0);
  }
}

Result<void> replaceFile(const std::filesystem::path& path, std::string_view content) {
  constexpr mode_t forAllToRead = 0644;
  const std::string failing = "cannot write " + path.string();
  if (!makeFolders(path.parent_path())) {
    return systemFailure(failing);
  }
  AtomicFile file(path, forAllToRead);
  auto result = file.write(content);
  if (result) {
    result = file.place();
  }
  return result ? result : Failure{failing + ": " + std::generic_category().message(result.error().error)};
}

}  // namespace tarnwell::system
