#pragma once

#include <sys/types.h>

#include <optional>

namespace tarnwell::host_linux::updates {

/// Copies the next part of the file `from`, beginning at `position`, to the end of what was written to `to`; a part is
/// small enough not to hold anybody up. Returns its length in bytes, 0 at the end of the file, and nothing, with errno
/// set, when it fails.
std::optional<off_t> copySome(int from, off_t position, int to);

}  // namespace tarnwell::host_linux::updates
