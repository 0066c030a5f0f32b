#include <fcntl.h>
#include <unistd.h>

#include "system/files/Sync.h"

namespace tarnwell::system {

// fsync ends at the disk's own memory. Not every file system has the call that goes farther.
bool sync(int descriptor) { return ::fcntl(descriptor, F_FULLFSYNC) == 0 || ::fsync(descriptor) == 0; }

}  // namespace tarnwell::system
