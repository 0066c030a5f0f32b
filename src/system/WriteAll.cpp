#include "system/WriteAll.h"

#include <unistd.h>

#include <cerrno>
#include <cstddef>

namespace tarnwell::system {

bool writeAll(int descriptor, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t count = ::write(descriptor, bytes.data(), bytes.size());
    if (count < 0 && errno != EINTR) {
      return false;
    }
    bytes.remove_prefix(static_cast<std::size_t>(count < 0 ? 0 : count));
  }
  return true;
}

}  // namespace tarnwell::system
