#include "standin/store/PreferenceFile.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>
#include <utility>

#include "standin/store/Descriptor.h"

namespace tarnwell::standin {
namespace {

// Far above any real domain; it keeps a mistaken file from filling the memory.
constexpr off_t largestStore = 64L * 1024 * 1024;

StoredPreferences withoutContent(StoreState state, int error) {
  StoredPreferences stored;
  stored.state = state;
  stored.error = error;
  return stored;
}

// Zero, or the errno that tells why there are no bytes.
int readStore(const std::string& path, std::string& bytes) {
  // Without O_NONBLOCK a named pipe in the store's place would hold us up for ever.
  const Descriptor file(::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
  if (!file) {
    return errno;
  }
  struct stat status {};
  if (::fstat(file.number(), &status) != 0) {
    return errno;
  }
  if (S_ISDIR(status.st_mode)) {
    return EISDIR;
  }
  if (!S_ISREG(status.st_mode)) {
    return EINVAL;
  }
  if (status.st_size > largestStore) {
    return EFBIG;
  }
  return file.readAll(bytes) ? 0 : errno;
}

}  // namespace

StoredPreferences loadPreferences(const std::string& path) {
  std::string bytes;
  const int error = readStore(path, bytes);
  if (error == ENOENT) {
    return withoutContent(StoreState::absent, 0);
  }
  if (error != 0) {
    return withoutContent(StoreState::unreadable, error);
  }
  ParsedList parsed = parsePropertyList(bytes);
  if (!PLIST_IS_DICT(parsed.list.get())) {
    return withoutContent(StoreState::damaged, 0);
  }
  StoredPreferences stored;
  stored.state = StoreState::sound;
  stored.dictionary = std::move(parsed.list);
  stored.fidelity = parsed.fidelity;
  return stored;
}

}  // namespace tarnwell::standin
