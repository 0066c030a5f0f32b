#pragma once

#include <filesystem>
#include <string>

namespace tarnwell::installation {

/// Whether there is a file at `path` that this user may run.
bool isProgram(const std::filesystem::path& path);

/// Whether `name` leads to a program: an absolute path, or a bare name on the PATH.
bool isFound(const std::string& name);

}  // namespace tarnwell::installation
