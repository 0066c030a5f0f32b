#include <sys/epoll.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <utility>

#include "system/ChildReaper.h"
#include "system/Descriptor.h"
#include "system/ProcessDescriptor.h"

namespace tarnwell::system {
namespace {

/// Reaps the child if it has ended. A child that the system does not know any more counts as ended: where SIGCHLD was
/// inherited as ignored, nothing is left of a child to reap.
bool hasEnded(idtype_t type, int number) {
  siginfo_t info = {};
  if (::waitid(type, static_cast<id_t>(number), &info, WEXITED | WNOHANG) != 0) {
    return errno == ECHILD;
  }
  return info.si_pid != 0;
}

}  // namespace

ChildReaper::ChildReaper() : events_(requiredDescriptor(::epoll_create1(EPOLL_CLOEXEC), "watch children")) {}

void ChildReaper::watch(pid_t child) {
  reapUnwatched();
  if (!tryWatch(child)) {
    unwatched_.push_back(child);
  }
}

void ChildReaper::reap() {
  // The bound keeps a burst of endings from holding up the host's loop.
  std::array<epoll_event, 16> events{};
  const int count = ::epoll_wait(events_.number(), events.data(), static_cast<int>(events.size()), 0);
  for (int index = 0; index < count; ++index) {
    const int number = events.at(static_cast<std::size_t>(index)).data.fd;
    if (!hasEnded(P_PIDFD, number)) {
      continue;
    }
    // Out of the set before it is closed: a set keeps what is still open elsewhere, and would report it for ever.
    ::epoll_ctl(events_.number(), EPOLL_CTL_DEL, number, nullptr);
    watched_.erase(number);
  }
  reapUnwatched();
}

bool ChildReaper::tryWatch(pid_t child) {
  Descriptor descriptor = processDescriptor(child);
  if (!descriptor) {
    return errno == ESRCH;
  }
  const int number = descriptor.number();
  epoll_event event = {.events = EPOLLIN, .data = {.fd = number}};
  if (::epoll_ctl(events_.number(), EPOLL_CTL_ADD, number, &event) != 0) {
    return false;
  }
  watched_.emplace(number, std::move(descriptor));
  return true;
}

void ChildReaper::reapUnwatched() {
  std::erase_if(unwatched_, [](pid_t child) { return hasEnded(P_PID, child); });
}

}  // namespace tarnwell::system
