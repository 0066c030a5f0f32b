#pragma once

#include <string_view>

namespace tarnwell::updater {

/// How many dictionaries and arrays may be within one another.
inline constexpr int deepestPropertyList = 64;

/// Whether a property list in XML is whole: well-formed, of no other elements than such lists have, each where it
/// belongs, with numbers and dates that can be read. The library that reads lists makes the best of a damaged one and
/// drops the rest, and goes down by calling itself, however deep.
bool isWholePropertyList(std::string_view xml);

}  // namespace tarnwell::updater
