#include <sys/epoll.h>

#include <array>
#include <cerrno>
#include <utility>

#include "system/ChildReaper.h"

namespace tarnwell::system {

ChildReaper::ChildReaper() : events_(requiredDescriptor(::epoll_create1(EPOLL_CLOEXEC), "watch children")) {}

void ChildReaper::watch(Process child, Ended ended) {
  tell(unwatchedEnds());
  Descriptor descriptor = child.endDescriptor();
  Child taken = {.descriptor = std::move(descriptor), .process = std::move(child), .ended = std::move(ended)};
  if (!tryWatch(taken)) {
    unwatched_.push_back(std::move(taken));
  }
}

void ChildReaper::reap() {
  Ends ends = unwatchedEnds();
  // The bound keeps a burst of endings from holding up the host's loop.
  std::array<epoll_event, 16> events{};
  const int count = ::epoll_wait(events_.number(), events.data(), static_cast<int>(events.size()), 0);
  for (int index = 0; index < count; ++index) {
    const auto found = watched_.find(events.at(static_cast<std::size_t>(index)).data.fd);
    if (const auto end = found->second.process.end()) {
      ends.emplace_back(std::move(found->second.ended), *end);
      // Out of the set before it is closed: a set keeps what is still open elsewhere, and would report it for ever.
      ::epoll_ctl(events_.number(), EPOLL_CTL_DEL, found->first, nullptr);
      watched_.erase(found);
    }
  }
  tell(ends);
}

bool ChildReaper::tryWatch(Child& child) {
  const int number = child.descriptor.number();
  epoll_event event = {.events = EPOLLIN, .data = {.fd = number}};
  if (!child.descriptor || ::epoll_ctl(events_.number(), EPOLL_CTL_ADD, number, &event) != 0) {
    return false;
  }
  watched_.emplace(number, std::move(child));
  return true;
}

ChildReaper::Ends ChildReaper::unwatchedEnds() {
  Ends ends;
  std::erase_if(unwatched_, [&](Child& child) {
    const auto end = child.process.end();
    if (end) {
      ends.emplace_back(std::move(child.ended), *end);
    }
    return end.has_value();
  });
  return ends;
}

void ChildReaper::tell(const Ends& ends) {
  for (const auto& [ended, end] : ends) {
    if (ended) {
      ended(end);
    }
  }
}

}  // namespace tarnwell::system
