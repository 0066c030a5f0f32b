#include "system/CopyFile.h"

#include <sys/types.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstddef>

#include "system/WriteAll.h"

namespace tarnwell::system {
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

}  // namespace

bool copyFile(int from, int to) {
  static std::array<char, partLength> bytes;
  off_t position = 0;
  for (;;) {
    const ssize_t count = readAt(from, bytes.data(), position);
    if (count < 0 || !writeAll(to, {bytes.data(), static_cast<std::size_t>(count)})) {
      return false;
    }
    if (count == 0) {
      return true;
    }
    position += count;
  }
}

}  // namespace tarnwell::system
