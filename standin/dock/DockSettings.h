#pragma once

#include <string>

#include "standin/store/PreferenceFile.h"

namespace tarnwell::standin {

/// The settings that the Dock obeys, as "key=value" in a fixed order with blanks between them. A key that is not there
/// is "key=absent", one of a type that the Dock does not take "key=wrong-type(integer)"; without a readable store each
/// is "key=unreadable". The text is always one line.
std::string dockSettingsText(const StoredPreferences& stored);

}  // namespace tarnwell::standin
