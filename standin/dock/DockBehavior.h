#pragma once

#include <string>
#include <string_view>

#include "standin/dock/motion/MinimizeEffect.h"
#include "standin/store/PreferenceFile.h"

namespace tarnwell::standin {

/// What the dock goes by: the settings that it finds, and the system's defaults where there is none of the right type.
struct DockBehavior {
  double autohideDelay = 0.2;         // in seconds, from 0 to an hour
  double autohideTimeModifier = 0.5;  // likewise
  bool scrollToOpen = false;
  MinimizeEffect minimizeEffect = MinimizeEffect::genie;
  bool showHidden = false;
  bool staticOnly = false;
  bool singleApp = false;

  bool operator==(const DockBehavior&) const = default;
};

DockBehavior dockBehavior(const StoredPreferences& stored);

/// What the store holds for each preference, as "key=value" with blanks between them. A key that is not there is
/// "key=absent", one of a type that the Dock does not take "key=wrong-type(integer)"; without a readable store each is
/// "key=unreadable". The text is always one line.
std::string logText(const StoredPreferences& stored);

/// One "key value" a line, with the names and in the order of the preferences.
std::string listText(const DockBehavior& behavior);

/// What such a text says; a line that is missing or damaged leaves the default.
DockBehavior listedBehavior(std::string_view text);

}  // namespace tarnwell::standin
