#include "installation/BaseFolders.h"
#include "installation/StateFolder.h"

namespace tarnwell::installation {

std::filesystem::path programStateFolder(const std::string& program) {
  const auto base = stateFolder();
  return base.empty() ? base : base / program;
}

}  // namespace tarnwell::installation
