#include "standin/store/FileLock.h"

#include <fcntl.h>
#include <sys/file.h>

#include <cerrno>

namespace tarnwell::standin {

std::optional<FileLock> FileLock::acquire(const std::string& path, LockWait wait) {
  system::Descriptor file(::open(path.c_str(), O_RDWR | O_CREAT | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC, 0600));
  if (!file) {
    return std::nullopt;
  }
  const int operation = wait == LockWait::never ? LOCK_EX | LOCK_NB : LOCK_EX;
  while (::flock(file.number(), operation) != 0) {
    if (errno != EINTR) {
      return std::nullopt;
    }
  }
  return FileLock(std::move(file));
}

}  // namespace tarnwell::standin
