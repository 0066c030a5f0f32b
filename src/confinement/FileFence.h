#pragma once

#include "confinement/Confinement.h"

namespace tarnwell::confinement {

/// Closes the file system but for what the rights name. False, with errno set, where the kernel does not offer that.
bool fenceFiles(const Rights& rights);

}  // namespace tarnwell::confinement
