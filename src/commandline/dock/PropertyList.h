#pragma once

#include <string_view>

#include "core/StoredValue.h"
#include "system/base/Result.h"

namespace tarnwell::commandline {

/// What a property list in XML holds of the Dock's settings.
system::Result<core::StoredValues> storedValuesIn(std::string_view xml);

}  // namespace tarnwell::commandline
