#pragma once

#include <string>

namespace tarnwell::kit {

/// A key that goes down.
struct KeyEvent {
  std::string charactersIgnoringModifiers = {};
  unsigned modifierFlags = 0;  ///< The platform's bits; 0x100000 is Command.
};

inline constexpr const char* returnKey = "\r";
inline constexpr const char* escapeKey = "\x1b";

}  // namespace tarnwell::kit
