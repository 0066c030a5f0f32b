#include "system/events/FolderWatch.h"

#include <sys/inotify.h>

namespace tarnwell::system {

FolderWatch::FolderWatch(const std::string& folder) : events_(::inotify_init1(IN_CLOEXEC | IN_NONBLOCK)) {
  if (events_ && ::inotify_add_watch(events_.number(), folder.c_str(), IN_CLOSE_WRITE) == -1) {
    events_.close();
  }
}

bool FolderWatch::wait(Time end) const {
  if (!events_ || !events_.waitUntilReadable(end)) {
    return false;
  }
  // What it was does not matter, only that it has been seen.
  while (events_.readPart()) {
  }
  return true;
}

}  // namespace tarnwell::system
