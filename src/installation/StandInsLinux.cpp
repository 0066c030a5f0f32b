#include <cstdlib>

#include "installation/Programs.h"
#include "installation/SearchPath.h"
#include "installation/StandIns.h"
#include "installation/UserEnvironment.h"
#include "system/processes/RunningExecutable.h"

namespace tarnwell::installation {
namespace {

system::Result<void> putFirst(const std::string& folder) {
  if (folder.find(':') != std::string::npos) {
    return system::Failure{"the stand-ins cannot be found in " + folder +
                           ": PATH takes no folder with a colon in its name"};
  }
  keepUserEnvironment();
  const char* before = ::getenv("PATH");
  if (::setenv("PATH", searchPathWith(folder, before == nullptr ? "" : before).c_str(), 1) == 0) {
    return {};
  }
  return system::Failure{"PATH cannot be set"};
}

system::Result<std::filesystem::path> standInOf(const std::string& program) {
  const auto own = system::runningExecutable();
  return own ? libexecProgram(frontOf(*own, program).parent_path(), program, "defaults") : own;
}

}  // namespace

system::Result<void> putStandInsFirst(const std::string& program) {
  const auto standIn = standInOf(program);
  return standIn ? putFirst(standIn->parent_path().string()) : standIn.error();
}

std::string defaultsForUser(const std::string& program) {
  const auto standIn = standInOf(program);
  return standIn ? standIn->string() : "defaults";
}

}  // namespace tarnwell::installation
