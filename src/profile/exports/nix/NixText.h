#pragma once

#include <span>
#include <string>
#include <string_view>

#include "profile/values/Profile.h"

namespace tarnwell::profile {

/// A set of attributes, assigned within a module: `NAME = { KEY = VALUE; ... };`, indented by two. Nothing for none.
std::string nixAttributes(std::string_view name, std::span<const WantedValue> values);

}  // namespace tarnwell::profile
