#pragma once

#include <cstddef>
#include <filesystem>
#include <string>

#include "system/base/Result.h"

namespace tarnwell::system {

/// What the file at `path` holds, which may be a link to one. A failure "cannot read PATH: reason" has the error ENOENT
/// where there is nothing, EISDIR for a folder, EINVAL for what is no file either, and EFBIG where it is larger than
/// `most` bytes. A pipe does not hold it up.
Result<std::string> readFile(const std::filesystem::path& path, std::size_t most);

}  // namespace tarnwell::system
