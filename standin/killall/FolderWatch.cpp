#include "standin/killall/FolderWatch.h"

#include <poll.h>
#include <sys/inotify.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>

namespace tarnwell::standin {

FolderWatch::FolderWatch(const std::string& folder) : events_(::inotify_init1(IN_CLOEXEC | IN_NONBLOCK)) {
  if (events_ && ::inotify_add_watch(events_.number(), folder.c_str(), IN_CLOSE_WRITE) < 0) {
    events_.close();
  }
}

bool FolderWatch::wait(Time end) const {
  if (!events_ || !waitUntilReadable(events_, end)) {
    return false;
  }
  // What it was does not matter, only that it has been seen.
  std::array<char, 4096> buffer{};
  while (::read(events_.number(), buffer.data(), buffer.size()) > 0) {
  }
  return true;
}

bool waitUntilReadable(const system::Descriptor& file, std::chrono::steady_clock::time_point end) {
  for (;;) {
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(end - std::chrono::steady_clock::now());
    pollfd readable{.fd = file.number(), .events = POLLIN, .revents = 0};
    const int ready = ::poll(&readable, 1, static_cast<int>(std::max(left.count(), std::int64_t{0})));
    if (ready >= 0 || errno != EINTR) {
      return ready > 0;
    }
  }
}

}  // namespace tarnwell::standin
