#include "system/RequiredDescriptor.h"

#include <cerrno>

#include "system/SystemFault.h"

namespace tarnwell::system {

Descriptor requiredDescriptor(int number, std::string_view action) {
  Descriptor descriptor = aboveStandardStreams(Descriptor(number));
  if (descriptor.isEmpty()) {
    systemFault(action, errno);
  }
  return descriptor;
}

}  // namespace tarnwell::system
