#include "updater/package/PackageKind.h"

#include <unistd.h>

#include <algorithm>
#include <array>

namespace tarnwell::updater {
namespace {

template <class Is>
const PackageKind* kindThat(Is is) {
  const auto kinds = installedKinds();
  const auto found = std::find_if(kinds.begin(), kinds.end(), is);
  return found == kinds.end() ? nullptr : *found;
}

}  // namespace

const PackageKind* packageKind(int descriptor) {
  std::array<char, 32> bytes{};
  const ssize_t count = ::pread(descriptor, bytes.data(), bytes.size(), 0);
  const std::string_view start(bytes.data(), count < 0 ? 0 : static_cast<std::size_t>(count));
  return kindThat([start](const PackageKind* kind) { return kind->isOne(start); });
}

const PackageKind* packageKind(std::string_view name) {
  return kindThat([name](const PackageKind* kind) { return kind->name == name; });
}

system::Result<void> placeFile(system::AtomicFile& copy, int /*folder*/, const std::filesystem::path& /*target*/) {
  return copy.place();
}

system::Failure unknownKind() {
  return {std::string("The update is ") + noInstalledKind + ", and cannot be installed on this system."};
}

}  // namespace tarnwell::updater
