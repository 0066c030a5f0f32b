#pragma once

#include <string>

#include "standin/store/PropertyList.h"

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

}  // namespace tarnwell::standin
