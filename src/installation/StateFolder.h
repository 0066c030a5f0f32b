#pragma once

#include <filesystem>
#include <string>

namespace tarnwell::installation {

/// Where `program` keeps what it remembers of its use: a folder of that name among those of the desktop; on macOS the
/// application's in ~/Library/Application Support. Empty where the environment names none.
std::filesystem::path programStateFolder(const std::string& program);

}  // namespace tarnwell::installation
