#pragma once

#include <spawn.h>
#include <sys/types.h>

#include <string>

#include "system/ChildStreams.h"

namespace tarnwell::system {

/// Starts /bin/zsh with a clean slate of signals.
class ShellLauncher {
 public:
  ShellLauncher();
  ShellLauncher(const ShellLauncher&) = delete;
  ShellLauncher& operator=(const ShellLauncher&) = delete;
  ~ShellLauncher();

  /// Starts a shell that runs `commandLine`. A failure is a fault.
  pid_t launch(const std::string& commandLine, const ChildStreams& streams) const;

 private:
  posix_spawnattr_t attributes_ = {};
};

}  // namespace tarnwell::system
