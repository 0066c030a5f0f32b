#pragma once

#include <array>
#include <string>
#include <string_view>

#include "system/base/Result.h"

namespace tarnwell::installation {

/// Major, minor, patch.
using VersionNumbers = std::array<int, 3>;

/// The version of macOS that the application works with: the system's own or, where that is not macOS, the
/// environment's MACOS_VERSION, 14.0.0 where it is unset or empty. A failure for a text that is no version, and for one
/// below 14.
system::Result<VersionNumbers> macosVersion();

/// `text` is "N", "N.N" or "N.N.N": ASCII digits alone, at most 9 for each number. Missing numbers are 0. A failure
/// says that it is what `source` has.
system::Result<VersionNumbers> parseMacosVersion(const std::string& source, std::string_view text);

}  // namespace tarnwell::installation
