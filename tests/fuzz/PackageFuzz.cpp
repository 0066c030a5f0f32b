#include <sys/mman.h>
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "fuzz/Require.h"
#include "system/base/Descriptor.h"
#include "updater/package/DebianControlLinux.h"
#include "updater/package/PackageKind.h"

namespace tarnwell::fuzz {
namespace {

/// The text is the control file that the package tools have printed.
void checkControl(const std::string& control) {
  constexpr std::size_t longest = 200;
  const auto version = updater::versionInControl(control);
  if (version) {
    require(!version->empty() && version->size() <= longest && version->find('\n') == std::string::npos);
    require(std::string_view(" \t").find(version->front()) == std::string_view::npos);
    require(std::string_view(" \t").find(version->back()) == std::string_view::npos);
    require(control.find(*version) != std::string::npos);
    // There is one version alone, wherever another one is put.
    require(!updater::versionInControl(control + "\nVersion: 0"));
    require(!updater::versionInControl("Version: 0\n" + control));
    require(updater::versionInControl("Version: " + *version) == version);
    require(updater::debianPackage.isVersionOf(*version + "-1", *version));
  }
  require(!updater::versionInControl("Version:\n" + control));
}

/// The text is what a downloaded file starts with.
void checkKind(std::string_view text) {
  const system::Descriptor file(::memfd_create("package", MFD_CLOEXEC));
  require(file && file.writeAll(text));
  const auto* kind = updater::packageKind(file.number());
  for (const auto* each : updater::installedKinds()) {
    require(each->isOne(text.substr(0, 32)) == (each == kind));
  }
  require(kind == nullptr || updater::packageKind(std::string_view(kind->name)) == kind);
}

void run(std::string_view text) {
  checkControl(std::string(text));
  checkKind(text);
}

}  // namespace
}  // namespace tarnwell::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  tarnwell::fuzz::run({reinterpret_cast<const char*>(data), size});
  return 0;
}
