#include "system/files/UnnamedFiles.h"

namespace tarnwell::system {

// No file system here knows them.
bool refuseUnnamedFiles() { return true; }

}  // namespace tarnwell::system
