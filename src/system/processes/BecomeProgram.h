#pragma once

#include <filesystem>

#include "system/base/Result.h"

namespace tarnwell::system {

/// Goes on as `program`, with the same number, environment and open descriptors; `words`, which a null pointer ends,
/// are what it was called as and its arguments. Returns only where that failed: why.
Failure becomeProgram(const std::filesystem::path& program, char* const* words);

}  // namespace tarnwell::system
