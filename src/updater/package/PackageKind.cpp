#include "updater/package/PackageKind.h"

#include <unistd.h>

#include <algorithm>
#include <array>

namespace tarnwell::updater {

const PackageKind* packageKind(int descriptor) {
  const auto kinds = installedKinds();
  std::array<char, 32> bytes{};
  const ssize_t count = ::pread(descriptor, bytes.data(), bytes.size(), 0);
  const std::string_view start(bytes.data(), count < 0 ? 0 : static_cast<std::size_t>(count));
  const auto found = std::find_if(kinds.begin(), kinds.end(), [start](const auto* kind) { return kind->isOne(start); });
  return found == kinds.end() ? nullptr : *found;
}

}  // namespace tarnwell::updater
