#pragma once

#include <filesystem>

#include "host/linux/Result.h"

namespace tarnwell::host_linux {

/// The file that this process runs; where it has been replaced meanwhile, the one that stands in its place.
Result<std::filesystem::path> runningExecutable();

}  // namespace tarnwell::host_linux
