#include <sys/syscall.h>
#include <unistd.h>

#include "system/ProcessDescriptor.h"

namespace tarnwell::system {

// The C library's own declaration is missing in older versions and unusable from C++ in others.
Descriptor processDescriptor(pid_t child) {
  return aboveStandardStreams(Descriptor(static_cast<int>(::syscall(SYS_pidfd_open, child, 0))));
}

}  // namespace tarnwell::system
