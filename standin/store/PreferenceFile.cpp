#include "standin/store/PreferenceFile.h"

#include <cerrno>
#include <system_error>
#include <utility>

#include "system/ReadFile.h"

namespace tarnwell::standin {
namespace {

// Far above any real domain; it keeps a mistaken file from filling the memory.
constexpr std::size_t largestStore = 64UL * 1024 * 1024;

}  // namespace

StoredPreferences loadPreferences(const std::string& path) {
  const auto bytes = system::readFile(path, largestStore);
  if (!bytes && bytes.error().error == ENOENT) {
    return {};
  }
  if (!bytes) {
    return {StoreState::unreadable, nullptr, "cannot be read: " + std::generic_category().message(bytes.error().error)};
  }
  system::Result<PropertyList> parsed = parsePropertyList(*bytes);
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
