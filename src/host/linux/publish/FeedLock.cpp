#include "host/linux/publish/FeedLock.h"

#include <fcntl.h>
#include <sys/file.h>

#include <cerrno>
#include <system_error>

#include "host/linux/MakeFolders.h"

namespace tarnwell::host_linux::publish {

Result<FeedLock> FeedLock::take(const std::filesystem::path& feed) {
  const std::filesystem::path folder = feed.has_parent_path() ? feed.parent_path() : ".";
  core::Descriptor opened;
  if (makeFolders(folder)) {
    opened = core::Descriptor(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  }
  while (!opened.isEmpty() && ::flock(opened.number(), LOCK_EX) != 0) {
    if (errno != EINTR) {
      opened.close();
    }
  }
  if (opened.isEmpty()) {
    return Failure{"cannot lock " + folder.string() + ": " + std::system_category().message(errno)};
  }
  return FeedLock(std::move(opened));
}

}  // namespace tarnwell::host_linux::publish
