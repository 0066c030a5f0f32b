#include <cerrno>
#include <cstdio>

#include "system/files/UnnamedFile.h"

namespace tarnwell::system {

// No file of macOS comes without a name.

Descriptor openUnnamedFile(int /*folder*/, mode_t /*mode*/) {
  errno = EOPNOTSUPP;
  return {};
}

bool nameFile(int /*file*/, int /*folder*/, const std::string& /*name*/) {
  errno = EOPNOTSUPP;
  return false;
}

bool exchangeNames(int folder, const std::string& one, const std::string& other) {
  return ::renameatx_np(folder, one.c_str(), folder, other.c_str(), RENAME_SWAP) == 0;
}

}  // namespace tarnwell::system
