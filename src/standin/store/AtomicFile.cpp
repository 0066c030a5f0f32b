#include "standin/store/AtomicFile.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>

#include "standin/store/Folders.h"

namespace tarnwell::standin {
namespace {

bool exchangeNames(const std::string& one, const std::string& other) {
  return ::renameat2(AT_FDCWD, one.c_str(), AT_FDCWD, other.c_str(), RENAME_EXCHANGE) == 0;
}

}  // namespace

std::optional<AtomicFile> AtomicFile::create(std::string target, const std::string& temporaryName) {
  std::string temporary = folderOf(target) + "/" + temporaryName;
  ::unlink(temporary.c_str());
  Descriptor file(::open(temporary.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0600));
  if (!file) {
    return std::nullopt;
  }
  return AtomicFile(std::move(file), std::move(target), std::move(temporary));
}

AtomicFile::AtomicFile(AtomicFile&& other) noexcept
    : file_(std::move(other.file_)),
      target_(std::move(other.target_)),
      temporary_(std::exchange(other.temporary_, std::string())) {}

AtomicFile::~AtomicFile() {
  if (!temporary_.empty()) {
    ::unlink(temporary_.c_str());
  }
}

bool AtomicFile::fill(std::string_view bytes) {
  return file_.writeAll(bytes) && ::fsync(file_.number()) == 0 && file_.close();
}

// The old file waits under the temporary name until the new one is safe, so that it can come back.
bool AtomicFile::commit() {
  const Swap swap = swapIn();
  if (swap == Swap::failed) {
    return false;
  }
  const bool safe = syncFolder(folderOf(target_));
  if (!safe && swap == Swap::exchanged) {
    exchangeNames(temporary_, target_);
  }
  if (!safe && swap == Swap::placed) {
    ::unlink(target_.c_str());
  }
  return safe;
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
  temporary_.clear();
  return swap;
}

}  // namespace tarnwell::standin
