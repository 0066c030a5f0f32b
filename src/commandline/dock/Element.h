#pragma once

#include <string>
#include <string_view>

#include "core/StoredValue.h"

namespace tarnwell::commandline {

/// The value as an element of a property list in XML, which `defaults write` stores with its type. Empty for none.
std::string elementOf(const core::StoredValue& value);

/// The element of a whole property list, without what is around it; empty where the text is none.
std::string elementIn(std::string_view list);

}  // namespace tarnwell::commandline
