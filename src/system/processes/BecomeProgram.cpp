#include "system/processes/BecomeProgram.h"

#include <unistd.h>

namespace tarnwell::system {

Failure becomeProgram(const std::filesystem::path& program, char* const* words) {
  ::execv(program.c_str(), words);
  return systemFailure("cannot start " + program.string());
}

}  // namespace tarnwell::system
