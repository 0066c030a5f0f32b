#pragma once

#include <cstdint>
#include <map>
#include <string_view>

namespace tarnwell::kit {

/// Four ASCII characters in 32 bits, the first in the most significant byte.
using FourCharCode = std::uint32_t;

constexpr FourCharCode fourCharCode(std::string_view code) {
  FourCharCode value = 0;
  for (const char c : code.substr(0, 4)) {
    value = value << 8U | static_cast<unsigned char>(c);
  }
  return value;
}

/// The event of a start, the parameter that says what for, and its value at login.
inline constexpr FourCharCode openApplicationEvent = fourCharCode("oapp");
inline constexpr FourCharCode propertyDataKeyword = fourCharCode("prdt");
inline constexpr FourCharCode launchedAsLoginItem = fourCharCode("lgit");

/// The message with which the system started or called the application.
struct AppleEvent {
  FourCharCode eventID = 0;
  /// The enumeration codes of its parameters, by keyword.
  std::map<FourCharCode, FourCharCode> parameters = {};
};

}  // namespace tarnwell::kit
