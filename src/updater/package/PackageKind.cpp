#include "updater/package/PackageKind.h"

#include <unistd.h>

#include <array>
#include <string_view>

namespace tarnwell::updater {

PackageKind packageKind(int descriptor) {
  constexpr std::string_view archive = "!<arch>\ndebian-binary";
  constexpr std::string_view executable =
      "\x7f"
      "ELF";
  constexpr std::string_view secondType = "AI\x02";
  constexpr std::size_t typePosition = 8;
  std::array<char, 32> bytes{};
  const ssize_t count = ::pread(descriptor, bytes.data(), bytes.size(), 0);
  const std::string_view start(bytes.data(), count < 0 ? 0 : static_cast<std::size_t>(count));
  if (start.starts_with(archive)) {
    return PackageKind::debian;
  }
  const bool isAppImage = start.size() > typePosition && start.starts_with(executable) &&
                          start.substr(typePosition).starts_with(secondType);
  return isAppImage ? PackageKind::appImage : PackageKind::other;
}

}  // namespace tarnwell::updater
