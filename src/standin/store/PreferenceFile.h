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
  Fidelity fidelity = Fidelity::exact;
  int error = 0;  // errno when unreadable
};

/// Reads one store. Needs no lock: writers replace the file in one step.
StoredPreferences loadPreferences(const std::string& path);

}  // namespace tarnwell::standin
