#pragma once

#include <chrono>
#include <filesystem>

#include "system/Result.h"

namespace tarnwell::updateclient {

/// Removes what has lain in the folder of downloads since before `time`. A folder that is not there, or that is another
/// user's, is left alone.
void removePackages(const std::filesystem::path& folder, std::chrono::system_clock::time_point time);

}  // namespace tarnwell::updateclient
