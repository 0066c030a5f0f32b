#pragma once

#include <string>
#include <utility>

#include "standin/store/lists/PropertyList.h"
#include "system/base/Result.h"
#include "system/files/FileLock.h"

namespace tarnwell::standin {

enum class StoreState {
  absent,
  sound,
  damaged,     // the bytes are there, but they are no property list with a dictionary at its top
  unreadable,  // the system would not hand out the bytes
};

struct StoredPreferences {
  StoreState state = StoreState::absent;
  PropertyList dictionary;  // a dictionary when sound, else none
  std::string reason;       // when damaged or unreadable: "is not a property list: line 3: ..."
};

/// Reads one store. Needs no lock: writers replace the file in one step.
StoredPreferences loadPreferences(const std::string& path);

/// One change of a store, alone among all writers: begin() takes the lock and reads, the caller edits dictionary(),
/// commit() writes. Nothing on the disk changes before commit() or remove(), and when they fail the store is as it was.
class PreferenceTransaction {
 public:
  /// Makes the folder and the lock when missing.
  static system::Result<PreferenceTransaction> begin(const std::string& path);

  StoreState state() const { return stored_.state; }

  /// What is stored; empty when there was no store, or none that could be understood.
  plist_t dictionary() const { return stored_.dictionary.get(); }

  /// Writes the dictionary for good. A damaged store is first moved out of the way, see setAsidePath().
  system::Result<void> commit();

  /// Takes the store away for good; a damaged one is moved out of the way instead.
  system::Result<void> remove();

  /// Where the damaged store is kept now; empty when none was moved.
  const std::string& setAsidePath() const { return setAsidePath_; }

  /// What is wrong with a damaged store.
  const std::string& reason() const { return stored_.reason; }

 private:
  PreferenceTransaction(std::string path, system::FileLock lock, StoredPreferences stored)
      : path_(std::move(path)), lock_(std::move(lock)), stored_(std::move(stored)) {}

  system::Result<void> setAside();

  std::string path_;
  system::FileLock lock_;
  StoredPreferences stored_;
  std::string setAsidePath_;
};

}  // namespace tarnwell::standin
