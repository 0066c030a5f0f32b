#pragma once

#include <filesystem>

#include "system/base/Result.h"

namespace tarnwell::system {

/// Gives a file that is to be replaced or removed a second name, PATH.damaged-1 or the first number that is free, so
/// that what it holds is kept and there is no moment without it. Gives that name; a failure names the file.
Result<std::filesystem::path> setAside(const std::filesystem::path& path);

}  // namespace tarnwell::system
