#pragma once

#include <optional>
#include <string_view>

#include "core/StoredValue.h"
#include "system/base/Result.h"

namespace tarnwell::commandline {

/// What a property list in XML holds of the Dock's settings.
system::Result<core::StoredValues> storedValuesIn(std::string_view xml);

/// The value of which `elementOf` gives that very text; nothing where there is none.
std::optional<core::StoredValue> storedValueOf(std::string_view element);

}  // namespace tarnwell::commandline
