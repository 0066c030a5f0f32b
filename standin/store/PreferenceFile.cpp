#include "standin/store/PreferenceFile.h"

#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <system_error>
#include <utility>

#include "system/files/AtomicFile.h"
#include "system/files/Folders.h"
#include "system/files/ReadFile.h"
#include "system/files/SetAside.h"

namespace tarnwell::standin {
namespace {

// Far above any real domain; it keeps a mistaken file from filling the memory.
constexpr std::size_t largestStore = 64UL * 1024 * 1024;
constexpr const char* lockName = "/.defaults.lock";
constexpr mode_t ownerAlone = 0600;

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

system::Result<PreferenceTransaction> PreferenceTransaction::begin(const std::string& path) {
  const std::string folder = system::folderOf(path);
  if (!system::makeFolders(folder)) {
    return system::systemFailure("cannot make the folder " + folder);
  }
  auto lock = system::FileLock::take(folder + lockName, system::FileLock::unlimited);
  if (!lock) {
    return lock.error();
  }
  StoredPreferences stored = loadPreferences(path);
  if (stored.state == StoreState::unreadable) {
    return system::Failure{path + " " + stored.reason};
  }
  if (!stored.dictionary) {
    stored.dictionary.reset(plist_new_dict());
  }
  return PreferenceTransaction(path, std::move(*lock), std::move(stored));
}

system::Result<void> PreferenceTransaction::commit() {
  const system::Result<std::string> bytes = binaryText(dictionary());
  if (!bytes) {
    return bytes.error();
  }
  system::AtomicFile file(path_, ownerAlone);
  if (auto written = file.write(*bytes); !written) {
    return written;
  }
  // The new store is complete before the damaged one moves: a full disk leaves everything in its place.
  if (auto moved = setAside(); !moved) {
    return moved;
  }
  return file.commit();
}

system::Result<void> PreferenceTransaction::remove() {
  if (auto moved = setAside(); !moved) {
    return moved;
  }
  const std::string removed = system::AtomicFile::passingPath(path_);
  if (std::rename(path_.c_str(), removed.c_str()) != 0) {
    return system::systemFailure("cannot remove " + path_);
  }
  if (!system::syncFolder(system::folderOf(path_))) {
    system::Failure failure = system::systemFailure("cannot sync the folder of " + path_);
    (void)std::rename(removed.c_str(), path_.c_str());
    return failure;
  }
  // The store is gone; should its remains stay, the next write takes them away.
  ::unlink(removed.c_str());
  return {};
}

system::Result<void> PreferenceTransaction::setAside() {
  if (state() != StoreState::damaged) {
    return {};
  }
  auto aside = system::setAside(path_);
  if (!aside) {
    return aside.error();
  }
  setAsidePath_ = aside->string();
  return {};
}

}  // namespace tarnwell::standin
