#pragma once

#include <string>

namespace tarnwell::kit {

/// A key that goes down.
struct KeyEvent {
  std::string charactersIgnoringModifiers = {};
  unsigned modifierFlags = 0;  ///< The platform's bits, of those below.
  /// What menus of this host write for the key, if that is another text. An entry with that key is meant as well.
  std::string shownInMenus = {};
};

inline constexpr unsigned commandFlag = 1U << 20U;
inline constexpr unsigned optionFlag = 1U << 19U;
inline constexpr unsigned controlFlag = 1U << 18U;
inline constexpr unsigned shiftFlag = 1U << 17U;

inline constexpr const char* returnKey = "\r";
inline constexpr const char* escapeKey = "\x1b";
// What writes nothing has a character of the platform's.
inline constexpr const char* upArrowKey = "\uf700";
inline constexpr const char* downArrowKey = "\uf701";
inline constexpr const char* leftArrowKey = "\uf702";
inline constexpr const char* rightArrowKey = "\uf703";
inline constexpr const char* homeKey = "\uf729";
inline constexpr const char* endKey = "\uf72b";
inline constexpr const char* pageUpKey = "\uf72c";
inline constexpr const char* pageDownKey = "\uf72d";

}  // namespace tarnwell::kit
