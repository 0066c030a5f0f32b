#include "system/events/KernelQueueMac.h"

#include <fcntl.h>

#include <algorithm>

namespace tarnwell::system {

Descriptor makeKernelQueue() {
  Descriptor queue = aboveStandardStreams(Descriptor(::kqueue()));
  ::fcntl(queue.number(), F_SETFD, FD_CLOEXEC);
  return queue;
}

struct kevent kernelEvent(int number, int filter, int flags, unsigned notes, std::intptr_t data) {
  struct kevent event = {};
  EV_SET(&event, static_cast<std::uintptr_t>(number), static_cast<std::int16_t>(filter),
         static_cast<std::uint16_t>(flags), notes, data, nullptr);
  return event;
}

bool changeKernelQueue(const Descriptor& queue, const struct kevent& event) {
  return ::kevent(queue.number(), &event, 1, nullptr, 0, nullptr) == 0;
}

std::vector<struct kevent> takeFromKernelQueue(const Descriptor& queue, std::size_t most) {
  std::vector<struct kevent> events(most);
  const timespec now = {};
  const int count = ::kevent(queue.number(), nullptr, 0, events.data(), static_cast<int>(most), &now);
  events.resize(static_cast<std::size_t>(std::max(count, 0)));
  return events;
}

}  // namespace tarnwell::system
