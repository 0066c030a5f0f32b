#include "host/linux/updates/CopyFile.h"

#include <sys/types.h>
#include <unistd.h>

#include <array>
#include <cerrno>

namespace tarnwell::host_linux::updates {
namespace {

constexpr std::size_t partLength = std::size_t{256} * 1024;

ssize_t readAt(int from, char* bytes, off_t position) {
  for (;;) {
    const ssize_t count = ::pread(from, bytes, partLength, position);
    if (count >= 0 || errno != EINTR) {
      return count;
    }
  }
}

bool writeAll(int to, const char* bytes, std::size_t length) {
  while (length > 0) {
    const ssize_t count = ::write(to, bytes, length);
    if (count < 0 && errno != EINTR) {
      return false;
    }
    const auto written = static_cast<std::size_t>(count < 0 ? 0 : count);
    bytes += written;
    length -= written;
  }
  return true;
}

}  // namespace

bool copyFile(int from, int to) {
  static std::array<char, partLength> bytes;
  off_t position = 0;
  for (;;) {
    const ssize_t count = readAt(from, bytes.data(), position);
    if (count < 0 || !writeAll(to, bytes.data(), static_cast<std::size_t>(count))) {
      return false;
    }
    if (count == 0) {
      return true;
    }
    position += count;
  }
}

}  // namespace tarnwell::host_linux::updates
