#include "standin/store/AtomicFile.h"

#include <fcntl.h>
#include <unistd.h>

#include <cstdio>

#include "standin/store/Folders.h"

namespace tarnwell::standin {

std::optional<AtomicFile> AtomicFile::create(std::string target, const std::string& temporaryName) {
  std::string temporary = folderOf(target) + "/" + temporaryName;
  ::unlink(temporary.c_str());
  Descriptor file(::open(temporary.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0600));
  if (!file) return std::nullopt;
  return AtomicFile(std::move(file), std::move(target), std::move(temporary));
}

AtomicFile::AtomicFile(AtomicFile&& other) noexcept
    : file_(std::move(other.file_)),
      target_(std::move(other.target_)),
      temporary_(std::exchange(other.temporary_, std::string())) {}

AtomicFile::~AtomicFile() {
  if (!temporary_.empty()) ::unlink(temporary_.c_str());
}

bool AtomicFile::fill(std::string_view bytes) {
  return file_.writeAll(bytes) && ::fsync(file_.number()) == 0 && file_.close();
}

bool AtomicFile::commit() {
  if (std::rename(temporary_.c_str(), target_.c_str()) != 0) return false;
  temporary_.clear();
  return syncFolder(folderOf(target_));
}

}  // namespace tarnwell::standin
