#include <cerrno>

#include "system/DescriptorSet.h"
#include "system/Fault.h"
#include "system/mac/KernelQueueMac.h"

namespace tarnwell::system {

DescriptorSet::DescriptorSet(std::string_view action) : set_(makeKernelQueue()) {
  if (!set_) {
    fault(action, errno);
  }
}

bool DescriptorSet::add(int number) const { return changeKernelQueue(set_, kernelEvent(number, EVFILT_READ, EV_ADD)); }

void DescriptorSet::remove(int number) const { changeKernelQueue(set_, kernelEvent(number, EVFILT_READ, EV_DELETE)); }

std::vector<int> DescriptorSet::readable(std::size_t most) const {
  std::vector<int> numbers;
  for (const auto& event : takeFromKernelQueue(set_, most)) {
    numbers.push_back(static_cast<int>(event.ident));
  }
  return numbers;
}

}  // namespace tarnwell::system
