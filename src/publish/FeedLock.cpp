#include "publish/FeedLock.h"

#include <fcntl.h>
#include <sys/file.h>

#include <cerrno>
#include <system_error>

#include "system/MakeFolders.h"

namespace tarnwell::publish {

system::Result<FeedLock> FeedLock::take(const std::filesystem::path& feed) {
  const std::filesystem::path folder = feed.has_parent_path() ? feed.parent_path() : ".";
  system::Descriptor opened;
  if (system::makeFolders(folder)) {
    opened = system::Descriptor(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  }
  while (opened && ::flock(opened.number(), LOCK_EX) != 0) {
    if (errno != EINTR) {
      opened.close();
    }
  }
  if (!opened) {
    return system::Failure{"cannot lock " + folder.string() + ": " + std::system_category().message(errno)};
  }
  return FeedLock(std::move(opened));
}

}  // namespace tarnwell::publish
