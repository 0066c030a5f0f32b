#include "updater/engine/Fences.h"

#include <fcntl.h>

#include <cstdlib>

#include "release/protocol/Engine.h"
#include "system/Descriptor.h"
#include "updater/engine/NeededFiles.h"
#include "updater/package/PackageClaim.h"

namespace tarnwell::updater {
namespace {

using confinement::Rights;

constexpr std::uint64_t mebibyte = 1024UL * 1024;
constexpr std::uint64_t largestPackage = PackageClaim::maximumLength;

}  // namespace

std::vector<std::string> fenceFetching() {
  Rights rights = {.usesNetwork = true, .memory = 1024 * mebibyte, .fileSize = largestPackage, .seconds = 15 * 60};
  addNetworkFiles(rights);
  for (const char* variable : {"SSL_CERT_FILE", "CURL_CA_BUNDLE"}) {
    if (const char* path = ::getenv(variable)) {
      rights.readable.emplace_back(path);
    }
  }
  return confinement::keepOnly(rights);
}

std::vector<std::string> fenceLooking() {
  const char* folder = ::getenv("TMPDIR");
  const system::Descriptor working(folder == nullptr ? -1 : ::open(folder, O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  Rights rights = {
      .readableFile = release::engineInput, .memory = 2048 * mebibyte, .fileSize = 64 * mebibyte, .seconds = 2 * 60};
  addPackageTools(rights);
  rights.scratch = working.number();
  return confinement::keepOnly(rights);
}

std::vector<std::string> fenceReading() {
  return confinement::keepOnly({.memory = 512 * mebibyte, .fileSize = mebibyte, .seconds = 10});
}

std::vector<std::string> fencePlacing() {
  return confinement::keepOnly(
      {.writable = {release::engineFolder}, .memory = 1024 * mebibyte, .fileSize = largestPackage, .seconds = 2 * 60});
}

}  // namespace tarnwell::updater
