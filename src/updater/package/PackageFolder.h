#pragma once

#include <chrono>
#include <filesystem>

#include "system/Result.h"

namespace tarnwell::updater {

/// Where downloads lie: "tarnwell/updates" in XDG_CACHE_HOME or, where that is unset or not absolute, in ~/.cache. It
/// is the updater's alone.
system::Result<std::filesystem::path> packageFolder();

/// Removes the packages that got their names before `time`. A folder that is not there, or that is another user's, is
/// left alone.
void removePackages(const std::filesystem::path& folder, std::chrono::system_clock::time_point time);

}  // namespace tarnwell::updater
