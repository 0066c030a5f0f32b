#pragma once

#include <string>
#include <string_view>

#include "standin/store/lists/Node.h"

namespace tarnwell::standin {

/// Reads an old-style property list, UTF-8: ( a, b ), { a = b; }, <0fbd77>, and texts in quotes or without. Numbers are
/// texts. None when not all of the text is such a list.
PropertyList parseOldStyleText(std::string_view text);

/// A value as an old-style property list, dictionaries sorted by key. `level` is the depth of the containers around
/// it; each adds four spaces. A container inside another carries its own indent before its bracket, as the system's
/// tool has it.
std::string oldStyleText(plist_t node, std::size_t level = 0);

/// A text in quotes and with escapes, unless it is made of letters, digits and `_./` alone.
std::string quotedText(std::string_view text);

}  // namespace tarnwell::standin
