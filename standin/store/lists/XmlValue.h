#pragma once

#include <string>
#include <string_view>

#include "standin/store/lists/Node.h"

namespace tarnwell::standin {

inline constexpr std::string_view xmlBlanks = " \t\r\n";

// What stands between the tags of an element, as a value: none when it is malformed, or cannot be kept as it is. Blanks
// around numbers and dates, and anywhere in data, mean nothing.

PropertyList xmlString(const std::string& text);

/// From the least signed to the largest unsigned number of 64 bits, also as 0x1F.
PropertyList xmlInteger(const std::string& text);

/// As in C, also inf, infinity and nan.
PropertyList xmlReal(const std::string& text);

/// 2025-03-20T19:05:18Z.
PropertyList xmlDate(const std::string& text);

/// Base64, padded.
PropertyList xmlData(const std::string& text);

PropertyList xmlTrue(const std::string& text);
PropertyList xmlFalse(const std::string& text);

}  // namespace tarnwell::standin
