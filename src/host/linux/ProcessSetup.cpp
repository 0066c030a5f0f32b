#include "host/linux/ProcessSetup.h"

#include <csignal>

#include "host/linux/EmulatedSystemVersion.h"
#include "host/linux/SearchPath.h"
#include "system/RunningExecutable.h"

namespace tarnwell::host_linux {

system::Result<ProcessSetup> ProcessSetup::prepare(const std::string& program) {
  // The parent process may ignore the ends of its children, and that is inherited: how ours end would not be known.
  (void)std::signal(SIGCHLD, SIG_DFL);
  const auto version = emulatedSystemVersion();
  if (!version) {
    return version.error();
  }
  const auto executable = system::runningExecutable();
  if (!executable) {
    return executable.error();
  }
  if (const auto placed = putStandInsFirst(program); !placed) {
    return placed.error();
  }
  return ProcessSetup{.version = *version, .executable = *executable};
}

}  // namespace tarnwell::host_linux
