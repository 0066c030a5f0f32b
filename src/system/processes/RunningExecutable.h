#pragma once

#include <filesystem>

#include "system/base/Result.h"

namespace tarnwell::system {

/// The file that this process runs; where it has been replaced meanwhile, the one that stands in its place.
Result<std::filesystem::path> runningExecutable();

}  // namespace tarnwell::system
