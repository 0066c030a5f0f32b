#include "updater/package/PackageKind.h"

namespace tarnwell::updater {

// None is installed here yet: every download is refused.
std::span<const PackageKind* const> installedKinds() { return {}; }

const char* const noInstalledKind = "no package that is known";

}  // namespace tarnwell::updater
