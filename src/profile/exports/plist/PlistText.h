#pragma once

#include <span>
#include <string>
#include <string_view>

#include "profile/values/Profile.h"

namespace tarnwell::profile {

/// What every property list in XML begins with, up to the line of its one value.
extern const std::string_view plistHead;

/// A name as it stands between two tags.
std::string xmlText(std::string_view name);

/// A line for each value, `<key>KEY</key><TYPE>VALUE</TYPE>`.
std::string plistEntries(std::string_view indentation, std::span<const WantedValue> values);

}  // namespace tarnwell::profile
