#pragma once

#include <string>

namespace tarnwell::kit {

/// A key that goes down.
struct KeyEvent {
  std::string charactersIgnoringModifiers = {};
  unsigned modifierFlags = 0;  ///< The platform's bits; 0x100000 is Command.
  /// What menus of this host write for the key, if that is another text. An entry with that key is meant as well.
  std::string shownInMenus = {};
};

inline constexpr const char* returnKey = "\r";
inline constexpr const char* escapeKey = "\x1b";

}  // namespace tarnwell::kit
