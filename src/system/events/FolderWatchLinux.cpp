#include "system/events/FolderWatch.h"

#include <sys/inotify.h>
#include <unistd.h>

#include <array>

namespace tarnwell::system {

FolderWatch::FolderWatch(const std::string& folder) : events_(::inotify_init1(IN_CLOEXEC | IN_NONBLOCK)) {
  if (events_ && ::inotify_add_watch(events_.number(), folder.c_str(), IN_CLOSE_WRITE) < 0) {
    events_.close();
  }
}

bool FolderWatch::wait(Time end) const {
  if (!events_ || !events_.waitUntilReadable(end)) {
    return false;
  }
  // What it was does not matter, only that it has been seen.
  std::array<char, 4096> buffer{};
  while (::read(events_.number(), buffer.data(), buffer.size()) > 0) {
  }
  return true;
}

}  // namespace tarnwell::system
