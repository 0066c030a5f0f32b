#include "host/linux/start/StartProgram.h"

#include "installation/UserEnvironment.h"

namespace tarnwell::host_linux {

system::Result<system::Process> startProgram(const std::vector<std::string>& words) {
  return system::Process::start(
      {.words = words, .environment = installation::userEnvironment(), .hasOwnSession = true});
}

}  // namespace tarnwell::host_linux
