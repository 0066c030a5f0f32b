#include <cstdlib>

#include "installation/StateFolder.h"

namespace tarnwell::installation {

std::filesystem::path programStateFolder(const std::string& /*program*/) {
  const char* home = ::getenv("HOME");
  const std::filesystem::path folder = home == nullptr ? "" : home;
  return folder.is_absolute() ? folder / "Library/Application Support" / TARNWELL_APPLICATION : "";
}

}  // namespace tarnwell::installation
