#include "updater/engine/Fences.h"

#include <cstdlib>

#include "release/protocol/Engine.h"
#include "updater/engine/NeededFiles.h"
#include "updater/package/PackageClaim.h"

namespace tarnwell::updater {
namespace {

using confinement::Rights;

constexpr std::uint64_t mebibyte = 1024UL * 1024;
constexpr std::uint64_t largestPackage = PackageClaim::maximumLength;

}  // namespace

std::vector<std::string> fenceFetching(std::chrono::seconds limit) {
  Rights rights = {
      .usesNetwork = true, .memory = 1024 * mebibyte, .fileSize = largestPackage, .seconds = 15 * 60, .time = limit};
  addNetworkFiles(rights);
  for (const char* variable : {"SSL_CERT_FILE", "CURL_CA_BUNDLE"}) {
    if (const char* path = ::getenv(variable)) {
      rights.readable.emplace_back(path);
    }
  }
  return confinement::keepOnly(rights);
}

std::vector<std::string> fenceLooking(std::chrono::seconds limit) {
  Rights rights = {.readableFile = release::engineInput, .memory = 2048 * mebibyte, .seconds = 2 * 60, .time = limit};
  addPackageTools(rights);
  return confinement::keepOnly(rights);
}

std::vector<std::string> fenceReading(std::chrono::seconds limit) {
  return confinement::keepOnly({.memory = 512 * mebibyte, .seconds = 10, .time = limit});
}

std::vector<std::string> fencePlacing(std::chrono::seconds limit) {
  return confinement::keepOnly({.writable = {release::engineFolder},
                                .memory = 1024 * mebibyte,
                                .fileSize = largestPackage,
                                .seconds = 2 * 60,
                                .time = limit});
}

}  // namespace tarnwell::updater
