#include <unistd.h>

#include "system/files/Sync.h"

namespace tarnwell::system {

bool sync(int descriptor) { return ::fsync(descriptor) == 0; }

}  // namespace tarnwell::system
