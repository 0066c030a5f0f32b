#include "updater/schedule/UpdaterPreferences.h"

#include <algorithm>
#include <cstdint>

#include "host/linux/BaseFolders.h"
#include "updater/schedule/PropertyListFile.h"

namespace tarnwell::updater {
namespace {

namespace fs = std::filesystem;

constexpr const char* checksKey = "SUEnableAutomaticChecks";
constexpr const char* downloadsKey = "SUAutomaticallyUpdate";
constexpr const char* lastCheckKey = "SULastCheckTime";
constexpr const char* intervalKey = "SUScheduledCheckInterval";
constexpr const char* skippedKey = "SUSkippedVersion";
constexpr const char* launchedKey = "SUHasLaunchedBefore";

// Dates in property lists count from the first day of 2001.
constexpr std::chrono::sys_days firstDay = std::chrono::year(2001) / std::chrono::January / 1;

// A user without any folder is told so when something is to be kept: no other user's folder takes it.
fs::path listOfUser() {
  const fs::path base = host_linux::configurationFolder();
  return (base.empty() ? "/.config" : base) / "tarnwell" / "updates.plist";
}

/// The value under a key when it is of that type.
plist_t valueIn(plist_t dictionary, const char* key, plist_type type) {
  plist_t node = plist_dict_get_item(dictionary, key);
  return plist_get_node_type(node) == type ? node : nullptr;
}

std::optional<bool> flagIn(const fs::path& file, const char* key) {
  const PropertyList list = PropertyListFile(file).dictionary();
  plist_t node = valueIn(list.get(), key, PLIST_BOOLEAN);
  return node != nullptr ? std::optional(plist_bool_val_is_true(node) != 0) : std::nullopt;
}

system::Result<void> store(const fs::path& file, const char* key, plist_t value) {
  PropertyList owned(value);
  return PropertyListFile(file).update(
      [&](plist_t dictionary) { plist_dict_set_item(dictionary, key, owned.release()); });
}

system::Result<void> storeFlag(const fs::path& file, const char* key, bool flag) {
  return store(file, key, plist_new_bool(flag ? 1 : 0));
}

}  // namespace

UpdaterPreferences UpdaterPreferences::ofUser() { return UpdaterPreferences(listOfUser()); }

std::optional<bool> UpdaterPreferences::automaticChecks() const { return flagIn(file_, checksKey); }

system::Result<void> UpdaterPreferences::setAutomaticChecks(bool checks) const {
  return storeFlag(file_, checksKey, checks);
}

bool UpdaterPreferences::automaticDownloads() const { return flagIn(file_, downloadsKey).value_or(false); }

system::Result<void> UpdaterPreferences::setAutomaticDownloads(bool downloads) const {
  return storeFlag(file_, downloadsKey, downloads);
}

std::optional<UpdaterPreferences::Time> UpdaterPreferences::lastCheck() const {
  const PropertyList list = PropertyListFile(file_).dictionary();
  plist_t node = valueIn(list.get(), lastCheckKey, PLIST_DATE);
  if (node == nullptr) {
    return std::nullopt;
  }
  std::int32_t seconds = 0;
  std::int32_t microseconds = 0;
  plist_get_date_val(node, &seconds, &microseconds);
  return firstDay + std::chrono::seconds(seconds);
}

system::Result<void> UpdaterPreferences::setLastCheck(Time time) const {
  const auto seconds = std::chrono::floor<std::chrono::seconds>(time - firstDay);
  return store(file_, lastCheckKey, plist_new_date(static_cast<std::int32_t>(seconds.count()), 0));
}

std::chrono::seconds UpdaterPreferences::interval() const {
  const PropertyList list = PropertyListFile(file_).dictionary();
  plist_t node = valueIn(list.get(), intervalKey, PLIST_UINT);
  if (node == nullptr) {
    return usualInterval;
  }
  std::uint64_t seconds = 0;
  plist_get_uint_val(node, &seconds);
  // What is negative in the file is beyond the longest here.
  if (seconds > static_cast<std::uint64_t>(longestInterval.count())) {
    return usualInterval;
  }
  return std::max(std::chrono::seconds(seconds), shortestInterval);
}

std::string UpdaterPreferences::skippedVersion() const {
  const PropertyList list = PropertyListFile(file_).dictionary();
  plist_t node = valueIn(list.get(), skippedKey, PLIST_STRING);
  std::uint64_t length = 0;
  const char* text = node != nullptr ? plist_get_string_ptr(node, &length) : nullptr;
  return text != nullptr ? std::string(text, length) : std::string();
}

system::Result<void> UpdaterPreferences::setSkippedVersion(const std::string& version) const {
  return store(file_, skippedKey, plist_new_string(version.c_str()));
}

bool UpdaterPreferences::hasLaunchedBefore() const { return flagIn(file_, launchedKey).value_or(false); }

system::Result<void> UpdaterPreferences::setHasLaunchedBefore() const { return storeFlag(file_, launchedKey, true); }

}  // namespace tarnwell::updater
