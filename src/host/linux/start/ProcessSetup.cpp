#include "host/linux/start/ProcessSetup.h"

#include <csignal>

#include "installation/MacosVersion.h"
#include "installation/Programs.h"
#include "installation/StandIns.h"
#include "system/processes/RunningExecutable.h"

namespace tarnwell::host_linux {

system::Result<ProcessSetup> ProcessSetup::prepare(const std::string& program) {
  // The parent process may ignore the ends of its children, and that is inherited: how ours end would not be known.
  (void)std::signal(SIGCHLD, SIG_DFL);
  const auto version = installation::macosVersion();
  if (!version) {
    return version.error();
  }
  const auto executable = system::runningExecutable();
  if (!executable) {
    return executable.error();
  }
  if (const auto placed = installation::putStandInsFirst(program); !placed) {
    return placed.error();
  }
  const auto [major, minor, patch] = *version;
  return ProcessSetup{.version = {.major = major, .minor = minor, .patch = patch},
                      .executable = installation::frontOf(*executable, program)};
}

}  // namespace tarnwell::host_linux
