#pragma once

#include <filesystem>

namespace tarnwell::system {

/// Makes a folder and those above it that are missing, for their owner alone. False, with errno set, when that fails.
bool makeFolders(const std::filesystem::path& folder);

}  // namespace tarnwell::system
