#include <algorithm>
#include <cerrno>

#include "system/base/Fault.h"
#include "system/events/DescriptorSet.h"
#include "system/events/KernelQueueMac.h"

namespace tarnwell::system {

DescriptorSet::DescriptorSet(std::string_view action) : set_(makeKernelQueue()) {
  if (!set_) {
    fault(action, errno);
  }
}

bool DescriptorSet::add(int number) const { return changeKernelQueue(set_, kernelEvent(number, EVFILT_READ, EV_ADD)); }

void DescriptorSet::remove(int number) const { changeKernelQueue(set_, kernelEvent(number, EVFILT_READ, EV_DELETE)); }

std::vector<int> DescriptorSet::readable(std::size_t most) const {
  const auto events = takeFromKernelQueue(set_, most);
  std::vector<int> numbers(events.size());
  std::transform(events.begin(), events.end(), numbers.begin(),
                 [](const struct kevent& event) { return static_cast<int>(event.ident); });
  return numbers;
}

}  // namespace tarnwell::system
