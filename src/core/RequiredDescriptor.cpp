#include "core/RequiredDescriptor.h"

#include <cerrno>

#include "core/SystemFault.h"

namespace tarnwell::core {

Descriptor requiredDescriptor(int number, std::string_view action) {
  Descriptor descriptor = aboveStandardStreams(Descriptor(number));
  if (descriptor.isEmpty()) {
    systemFault(action, errno);
  }
  return descriptor;
}

}  // namespace tarnwell::core
