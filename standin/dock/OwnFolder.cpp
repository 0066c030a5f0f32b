#include "standin/dock/OwnFolder.h"

#include <unistd.h>

#include <array>
#include <climits>
#include <cstddef>

#include "system/Folders.h"

namespace tarnwell::standin {

std::string ownFolder() {
  std::array<char, PATH_MAX> path{};
  const ssize_t length = ::readlink("/proc/self/exe", path.data(), path.size());
  return length <= 0 ? "." : system::folderOf(std::string(path.data(), static_cast<std::size_t>(length)));
}

}  // namespace tarnwell::standin
