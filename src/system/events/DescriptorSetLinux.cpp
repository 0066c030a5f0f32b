#include <sys/epoll.h>

#include <algorithm>
#include <iterator>

#include "system/events/DescriptorSet.h"

namespace tarnwell::system {

DescriptorSet::DescriptorSet(std::string_view action)
    : set_(requiredDescriptor(::epoll_create1(EPOLL_CLOEXEC), action)) {}

bool DescriptorSet::add(int number) const {
  epoll_event event = {.events = EPOLLIN, .data = {.fd = number}};
  return ::epoll_ctl(set_.number(), EPOLL_CTL_ADD, number, &event) == 0;
}

void DescriptorSet::remove(int number) const { ::epoll_ctl(set_.number(), EPOLL_CTL_DEL, number, nullptr); }

std::vector<int> DescriptorSet::readable(std::size_t most) const {
  std::vector<epoll_event> events(most);
  const int count = ::epoll_wait(set_.number(), events.data(), static_cast<int>(most), 0);
  std::vector<int> numbers(static_cast<std::size_t>(std::max(count, 0)));
  std::transform(events.begin(), events.begin() + std::ssize(numbers), numbers.begin(),
                 [](const epoll_event& event) { return event.data.fd; });
  return numbers;
}

}  // namespace tarnwell::system
