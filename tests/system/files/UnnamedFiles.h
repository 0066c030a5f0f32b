#pragma once

namespace tarnwell::system {

/// From now on this process is on a file system that knows no files without a name. False when that cannot be had.
bool refuseUnnamedFiles();

}  // namespace tarnwell::system
