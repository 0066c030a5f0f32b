#pragma once

#include <string_view>

#include "standin/store/lists/Node.h"
#include "system/base/Result.h"

namespace tarnwell::standin {

/// Reads a property list in XML, whole or not at all, in UTF-8 or whatever encoding it names. At its top is <plist>
/// with one value, or that value alone. The library makes the best of a damaged list, drops the rest, and goes down by
/// calling itself for every comment; so it is not asked.
system::Result<PropertyList> parseXmlList(std::string_view xml);

}  // namespace tarnwell::standin
