#pragma once

#include "confinement/Confinement.h"

namespace tarnwell::updater {

// What of this system's files a job needs, as far as the system can be told to keep the others from it.

/// To find a server and to trust it.
void addNetworkFiles(confinement::Rights& rights);
/// To look into a package.
void addPackageTools(confinement::Rights& rights);

}  // namespace tarnwell::updater
