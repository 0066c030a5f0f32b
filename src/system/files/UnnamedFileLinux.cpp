#include <fcntl.h>
#include <unistd.h>

#include <cstdio>

#include "system/files/UnnamedFile.h"

namespace tarnwell::system {

Descriptor openUnnamedFile(int folder, mode_t mode) {
  return Descriptor(::openat(folder, ".", O_TMPFILE | O_RDWR | O_CLOEXEC, mode));
}

bool nameFile(int file, int folder, const std::string& name) {
  const std::string self = "/proc/self/fd/" + std::to_string(file);
  return ::linkat(AT_FDCWD, self.c_str(), folder, name.c_str(), AT_SYMLINK_FOLLOW) == 0;
}

bool exchangeNames(int folder, const std::string& one, const std::string& other) {
  return ::renameat2(folder, one.c_str(), folder, other.c_str(), RENAME_EXCHANGE) == 0;
}

}  // namespace tarnwell::system
