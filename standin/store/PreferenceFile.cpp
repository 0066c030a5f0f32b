#include "standin/store/PreferenceFile.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>
#include <system_error>
#include <utility>

#include "standin/store/Descriptor.h"

namespace tarnwell::standin {
namespace {

// Far above any real domain; it keeps a mistaken file from filling the memory.
constexpr off_t largestStore = 64L * 1024 * 1024;

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
    return {};
  }
  if (error != 0) {
    return {StoreState::unreadable, nullptr, "cannot be read: " + std::generic_category().message(error)};
  }
  system::Result<PropertyList> parsed = parsePropertyList(bytes);
  if (!parsed) {
    return {StoreState::damaged, nullptr, "is not a property list: " + parsed.error().message};
  }
  auto& list = *parsed;
  if (!PLIST_IS_DICT(list.get())) {
    return {StoreState::damaged, nullptr, "is not a property list: it has no dictionary at its top"};
  }
  return {StoreState::sound, std::move(list), ""};
}

}  // namespace tarnwell::standin
