#include "system/ShellLauncher.h"

#include <unistd.h>

#include <array>
#include <csignal>
#include <cstring>

#include "system/Fault.h"

namespace tarnwell::system {
namespace {

void require(int error) {
  if (error != 0) {
    fault("prepare a launch", error);
  }
}

}  // namespace

ShellLauncher::ShellLauncher() {
  require(::posix_spawnattr_init(&attributes_));
  sigset_t none;
  sigset_t all;
  ::sigemptyset(&none);
  // Not sigfillset: it leaves out the signals that the C library keeps for itself, and a child finds those ignored.
  std::memset(&all, 0xFF, sizeof all);
  require(::posix_spawnattr_setsigmask(&attributes_, &none));
  require(::posix_spawnattr_setsigdefault(&attributes_, &all));
  require(::posix_spawnattr_setflags(&attributes_, POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF));
}

ShellLauncher::~ShellLauncher() { ::posix_spawnattr_destroy(&attributes_); }

pid_t ShellLauncher::launch(const std::string& commandLine, const ChildStreams& streams) const {
  constexpr const char* shell = "/bin/zsh";
  // The system's signature lacks a const; it does not touch the texts.
  const std::array<char*, 4> arguments = {const_cast<char*>(shell), const_cast<char*>("-c"),
                                          const_cast<char*>(commandLine.c_str()), nullptr};
  pid_t child = 0;
  const int error = ::posix_spawn(&child, shell, &streams.actions(), &attributes_, arguments.data(), environ);
  if (error != 0) {
    fault("launch /bin/zsh", error);
  }
  return child;
}

}  // namespace tarnwell::system
