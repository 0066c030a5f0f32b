#pragma once

#include <filesystem>

namespace tarnwell::system {

/// Makes a folder and those above it that are missing, for their owner alone (mode 0700), and has each new name reach
/// the disk. False, with errno set, when that fails.
bool makeFolders(const std::filesystem::path& folder);

/// Has the names in a folder reach the disk. False, with errno set, when that fails.
bool syncFolder(const std::filesystem::path& folder);

/// The folder that holds `path`; "." for a bare name.
std::filesystem::path folderOf(const std::filesystem::path& path);

}  // namespace tarnwell::system
