#include "standin/store/PreferenceTransaction.h"

#include <unistd.h>

#include <cerrno>
#include <cstdio>

#include "standin/store/AtomicFile.h"
#include "standin/store/Folders.h"
#include "standin/store/Timestamp.h"

namespace tarnwell::standin {
namespace {

constexpr const char* lockName = "/.defaults.lock";
constexpr const char* temporaryName = ".defaults.tmp";

}  // namespace

system::Result<PreferenceTransaction> PreferenceTransaction::begin(const std::string& path) {
  const std::string folder = folderOf(path);
  if (!makeFolders(folder)) {
    return system::systemFailure("cannot make the folder " + folder);
  }
  std::optional<FileLock> lock = FileLock::acquire(folder + lockName, LockWait::untilFree);
  if (!lock) {
    return system::systemFailure("cannot lock " + folder + lockName);
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

std::optional<system::Failure> PreferenceTransaction::commit() {
  const system::Result<std::string> bytes = binaryText(dictionary());
  if (!bytes) {
    return bytes.error();
  }
  AtomicFile file(path_, temporaryName);
  if (auto failure = file.write(*bytes)) {
    return failure;
  }
  // The new store is complete before the damaged one moves: a full disk leaves everything in its place.
  if (auto failure = setAside()) {
    return failure;
  }
  return file.commit();
}

std::optional<system::Failure> PreferenceTransaction::remove() {
  if (auto failure = setAside()) {
    return failure;
  }
  const std::string folder = folderOf(path_);
  const std::string removed = folder + "/" + temporaryName;
  if (std::rename(path_.c_str(), removed.c_str()) != 0) {
    return system::systemFailure("cannot remove " + path_);
  }
  if (!syncFolder(folder)) {
    system::Failure failure = system::systemFailure("cannot sync the folder of " + path_);
    (void)std::rename(removed.c_str(), path_.c_str());
    return failure;
  }
  // The store is gone; should its remains stay, the next write takes them away.
  ::unlink(removed.c_str());
  return std::nullopt;
}

// A second name for the same file: there is no moment in which the store has neither its old nor its new content.
std::optional<system::Failure> PreferenceTransaction::setAside() {
  if (state() != StoreState::damaged) {
    return std::nullopt;
  }
  const std::string base = path_ + ".damaged-" + fileStamp();
  for (int attempt = 1; attempt <= 1000; ++attempt) {
    std::string aside = attempt == 1 ? base : base + "-" + std::to_string(attempt);
    if (::link(path_.c_str(), aside.c_str()) == 0) {
      setAsidePath_ = std::move(aside);
      return std::nullopt;
    }
    if (errno != EEXIST) {
      break;
    }
  }
  return system::systemFailure("cannot set aside " + path_);
}

}  // namespace tarnwell::standin
