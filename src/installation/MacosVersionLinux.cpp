#include <cstdlib>

#include "installation/MacosVersion.h"

namespace tarnwell::installation {
namespace {

constexpr const char* variable = "MACOS_VERSION";

}  // namespace

system::Result<VersionNumbers> macosVersion() {
  const char* text = ::getenv(variable);
  return parseMacosVersion(variable, text == nullptr || *text == '\0' ? "14" : text);
}

}  // namespace tarnwell::installation
