#include <array>

#include "updater/package/PackageKind.h"

namespace tarnwell::updater {

std::span<const PackageKind* const> installedKinds() {
  static constexpr std::array<const PackageKind*, 2> kinds = {&debianPackage, &appImage};
  return kinds;
}

const char* const noInstalledKind = "neither a Debian package nor an AppImage";

}  // namespace tarnwell::updater
