#include "system/files/FileLock.h"

#include <fcntl.h>
#include <sys/file.h>

#include <cerrno>
#include <thread>

namespace tarnwell::system {
namespace {

using std::chrono::milliseconds;
using Clock = std::chrono::steady_clock;

// The system tells of a lock that is free again only to those who wait without a limit.
constexpr milliseconds pause(5);

bool lock(int file, milliseconds patience) {
  const bool waits = patience == FileLock::unlimited;
  const Clock::time_point end = waits ? Clock::time_point::max() : Clock::now() + patience;
  while (::flock(file, waits ? LOCK_EX : LOCK_EX | LOCK_NB) != 0) {
    if ((errno != EWOULDBLOCK && errno != EINTR) || Clock::now() >= end) {
      return false;
    }
    std::this_thread::sleep_for(pause);
  }
  return true;
}

}  // namespace

Result<FileLock> FileLock::take(const std::filesystem::path& file, milliseconds patience) {
  Descriptor opened(::open(file.c_str(), O_RDWR | O_CREAT | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC, 0600));
  if (!opened || !lock(opened.number(), patience)) {
    return systemFailure("cannot lock " + file.string());
  }
  return FileLock(std::move(opened));
}

Result<FileLock> FileLock::takeFolder(const std::filesystem::path& folder, milliseconds patience) {
  Descriptor opened(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (!opened || !lock(opened.number(), patience)) {
    return systemFailure("cannot lock " + folder.string());
  }
  return FileLock(std::move(opened));
}

}  // namespace tarnwell::system
