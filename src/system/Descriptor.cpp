#include "system/Descriptor.h"

#include <fcntl.h>
#include <unistd.h>

#include <utility>

namespace tarnwell::system {

Descriptor::Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}

Descriptor& Descriptor::operator=(Descriptor&& other) noexcept {
  if (this != &other) {
    close();
    number_ = std::exchange(other.number_, -1);
  }
  return *this;
}

void Descriptor::close() {
  // An interrupted close has closed all the same; a second try could hit somebody else's descriptor.
  if (!isEmpty()) {
    ::close(std::exchange(number_, -1));
  }
}

Descriptor aboveStandardStreams(Descriptor descriptor) {
  if (descriptor.isEmpty() || descriptor.number() > STDERR_FILENO) {
    return descriptor;
  }
  return Descriptor(::fcntl(descriptor.number(), F_DUPFD_CLOEXEC, STDERR_FILENO + 1));
}

}  // namespace tarnwell::system
