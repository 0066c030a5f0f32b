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

std::optional<PreferenceTransaction> PreferenceTransaction::begin(const std::string& path) {
  const std::string folder = folderOf(path);
  if (!makeFolders(folder)) {
    return std::nullopt;
  }
  std::optional<FileLock> lock = FileLock::acquire(folder + lockName, LockWait::untilFree);
  if (!lock) {
    return std::nullopt;
  }
  StoredPreferences stored = loadPreferences(path);
  if (stored.state == StoreState::unreadable || stored.fidelity == Fidelity::inexact) {
    return std::nullopt;
  }
  if (!stored.dictionary) {
    stored.dictionary.reset(plist_new_dict());
  }
  return PreferenceTransaction(path, std::move(*lock), std::move(stored));
}

bool PreferenceTransaction::commit() {
  const std::string bytes = binaryText(dictionary());
  if (bytes.empty()) {
    return false;
  }
  std::optional<AtomicFile> file = AtomicFile::create(path_, temporaryName);
  // The new store is complete before the damaged one moves: a full disk leaves everything in its place.
  return file && file->fill(bytes) && (state() != StoreState::damaged || setAside()) && file->commit();
}

bool PreferenceTransaction::remove() {
  if (state() == StoreState::damaged && !setAside()) {
    return false;
  }
  const std::string folder = folderOf(path_);
  const std::string removed = folder + "/" + temporaryName;
  if (std::rename(path_.c_str(), removed.c_str()) != 0) {
    return false;
  }
  if (syncFolder(folder)) {
    return ::unlink(removed.c_str()) == 0;
  }
  (void)std::rename(removed.c_str(), path_.c_str());
  return false;
}

// A second name for the same file: there is no moment in which the store has neither its old nor its new content.
bool PreferenceTransaction::setAside() {
  const std::string base = path_ + ".damaged-" + fileStamp();
  for (int attempt = 1; attempt <= 1000; ++attempt) {
    std::string aside = attempt == 1 ? base : base + "-" + std::to_string(attempt);
    if (::link(path_.c_str(), aside.c_str()) == 0) {
      setAsidePath_ = std::move(aside);
      return true;
    }
    if (errno != EEXIST) {
      return false;
    }
  }
  return false;
}

}  // namespace tarnwell::standin
