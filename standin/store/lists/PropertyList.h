#pragma once

#include <string>
#include <string_view>

#include "standin/store/lists/Node.h"
#include "system/base/Result.h"

namespace tarnwell::standin {

/// Reads a binary or an XML property list: whole, with every value as it is there, or not at all.
system::Result<PropertyList> parsePropertyList(std::string_view bytes);

/// The two ways to write a list. What they give has been read back and found to be the same; dates in XML to the
/// second. XML has no place for control characters.
system::Result<std::string> binaryText(plist_t node);
system::Result<std::string> xmlText(plist_t node);

/// Whether two lists hold the same values of the same types. Dates are compared to the second.
bool isSame(plist_t one, plist_t other);

}  // namespace tarnwell::standin
