#pragma once

namespace tarnwell::system {

/// Appends what the file `from` holds, from its start to its end, to what was written to `to`. False, with errno set,
/// when that fails. Blocks for as long as it takes.
bool copyFile(int from, int to);

}  // namespace tarnwell::system
