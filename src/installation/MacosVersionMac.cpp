#include "installation/MacosVersion.h"
#include "system/base/SystemVersion.h"

namespace tarnwell::installation {

system::Result<VersionNumbers> macosVersion() {
  return parseMacosVersion("the version of macOS", system::systemVersion());
}

}  // namespace tarnwell::installation
