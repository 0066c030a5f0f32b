#pragma once

#include <filesystem>

namespace tarnwell::host_linux {

/// Makes a folder and those above it that are missing, for their owner alone. False, with errno set, when that fails.
bool makeFolders(const std::filesystem::path& folder);

}  // namespace tarnwell::host_linux
