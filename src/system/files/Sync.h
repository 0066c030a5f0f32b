#pragma once

namespace tarnwell::system {

/// Has what was written to a file, or the names in a folder, reach the disk. False, with errno set, when that fails;
/// some file systems have nothing to do for a folder and say EINVAL.
bool sync(int descriptor);

}  // namespace tarnwell::system
