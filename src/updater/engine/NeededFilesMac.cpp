#include "updater/engine/NeededFiles.h"

namespace tarnwell::updater {

// There is no fence around files.

void addNetworkFiles(confinement::Rights& /*rights*/) {}

void addPackageTools(confinement::Rights& /*rights*/) {}

}  // namespace tarnwell::updater
