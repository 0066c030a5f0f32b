#pragma once

#include <filesystem>
#include <optional>
#include <string_view>

#include "system/Result.h"

namespace tarnwell::system {

/// Puts `content` in the place of the file at `path`: wholly or not at all, even when the power fails. Missing folders
/// are made, for their owner alone; a new file can be read by everybody, one that was there keeps its mode. What is a
/// symbolic link becomes a file. Returns why not.
std::optional<Failure> replaceFile(const std::filesystem::path& path, std::string_view content);

}  // namespace tarnwell::system
