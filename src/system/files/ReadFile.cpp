#include "system/files/ReadFile.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>

#include "system/base/Descriptor.h"

namespace tarnwell::system {
namespace {

// What could be opened is there. A file system of another computer or program may still answer that it is not.
Failure unreadable(const std::string& failing) {
  errno = errno == ENOENT ? ESTALE : errno;
  return systemFailure(failing);
}

}  // namespace

Result<std::string> readFile(const std::filesystem::path& path, std::size_t most) {
  const std::string failing = "cannot read " + path.string();
  const Descriptor file(::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
  if (!file) {
    return systemFailure(failing);
  }
  struct stat status = {};
  if (::fstat(file.number(), &status) != 0) {
    return unreadable(failing);
  }
  if (!S_ISREG(status.st_mode)) {
    return Failure{.message = failing + ": it is not a file", .error = S_ISDIR(status.st_mode) ? EISDIR : EINVAL};
  }
  auto content = file.readAll(most);
  if (!content) {
    return unreadable(failing);
  }
  if (content->size() > most) {
    return Failure{.message = failing + ": it is too large", .error = EFBIG};
  }
  return *std::move(content);
}

}  // namespace tarnwell::system
