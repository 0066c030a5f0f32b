#include "standin/store/AtomicFile.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>

#include "standin/store/Folders.h"

namespace tarnwell::standin {
namespace {

bool exchangeNames(const std::string& one, const std::string& other) {
  return ::renameat2(AT_FDCWD, one.c_str(), AT_FDCWD, other.c_str(), RENAME_EXCHANGE) == 0;
}

bool isNamed(const system::Descriptor& file, const std::string& name) {
  struct stat opened {};
  struct stat named {};
  return ::fstat(file.number(), &opened) == 0 && ::lstat(name.c_str(), &named) == 0 && opened.st_ino == named.st_ino;
}

// Not before the process that gave the name has ended or moved its file on: it has the file locked until then. Where
// the file system has no locks, that process finds its name gone, and says so.
void removeLeftover(const std::string& name) {
  const system::Descriptor left(::open(name.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
  if (left) {
    ::flock(left.number(), LOCK_EX);
  }
  // What cannot be opened, a link for one, is no file of ours.
  if (left ? isNamed(left, name) : errno != ENOENT) {
    ::unlink(name.c_str());
  }
}

}  // namespace

AtomicFile::AtomicFile(std::string target, const std::string& temporaryName)
    : target_(std::move(target)), temporary_(folderOf(target_) + "/" + temporaryName) {}

AtomicFile::~AtomicFile() {
  if (isNamed_) {
    ::unlink(temporary_.c_str());
  }
}

std::optional<system::Failure> AtomicFile::write(std::string_view bytes) {
  if (!create()) {
    return system::systemFailure("cannot make a file beside " + target_);
  }
  if (!file_.writeAll(bytes) || ::fsync(file_.number()) != 0) {
    return system::systemFailure("cannot write " + target_);
  }
  errno = EIO;  // for bytes that are other ones
  return holds(bytes) ? std::nullopt
                      : std::optional(system::systemFailure("cannot read back what was written for " + target_));
}

bool AtomicFile::create() {
  file_ = system::Descriptor(::open(folderOf(target_).c_str(), O_RDWR | O_TMPFILE | O_CLOEXEC, 0600));
  if (!file_) {
    removeLeftover(temporary_);
    file_ = system::Descriptor(::open(temporary_.c_str(), O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0600));
    isNamed_ = static_cast<bool>(file_);
  }
  if (file_) {
    ::flock(file_.number(), LOCK_EX);
  }
  return static_cast<bool>(file_);
}

bool AtomicFile::holds(std::string_view bytes) const {
  return ::lseek(file_.number(), 0, SEEK_SET) == 0 && file_.readAll() == bytes;
}

bool AtomicFile::link(const std::string& name) const {
  const std::string self = "/proc/self/fd/" + std::to_string(file_.number());
  return ::linkat(AT_FDCWD, self.c_str(), AT_FDCWD, name.c_str(), AT_SYMLINK_FOLLOW) == 0;
}

bool AtomicFile::takeName() {
  // Another process that writes to the same target may come in between, but not for ever.
  for (int attempt = 0; !isNamed_ && attempt < 1000; ++attempt) {
    removeLeftover(temporary_);
    isNamed_ = link(temporary_);
    if (!isNamed_ && errno != EEXIST) {
      break;
    }
  }
  return isNamed_;
}

std::optional<system::Failure> AtomicFile::place() {
  if (!isNamed_ && link(target_)) {
    return std::nullopt;
  }
  if (!takeName() || std::rename(temporary_.c_str(), target_.c_str()) != 0) {
    return system::systemFailure("cannot replace " + target_);
  }
  isNamed_ = false;
  return std::nullopt;
}

// The old file waits under the temporary name until the new one is safe, so that it can come back.
std::optional<system::Failure> AtomicFile::commit() {
  const Swap swap = takeName() ? swapIn() : Swap::failed;
  if (swap == Swap::failed) {
    return system::systemFailure("cannot replace " + target_);
  }
  if (syncFolder(folderOf(target_))) {
    return std::nullopt;
  }
  system::Failure failure = system::systemFailure("cannot sync the folder of " + target_);
  swapBack(swap);
  return failure;
}

AtomicFile::Swap AtomicFile::swapIn() {
  if (exchangeNames(temporary_, target_)) {
    return Swap::exchanged;
  }
  // Some file systems cannot exchange; there is no way back then.
  const Swap swap = errno == ENOENT ? Swap::placed : Swap::replaced;
  if (std::rename(temporary_.c_str(), target_.c_str()) != 0) {
    return Swap::failed;
  }
  isNamed_ = false;
  return swap;
}

void AtomicFile::swapBack(Swap swap) {
  if (swap == Swap::exchanged) {
    exchangeNames(temporary_, target_);
  } else if (swap == Swap::placed) {
    ::unlink(target_.c_str());
  }
}

}  // namespace tarnwell::standin
