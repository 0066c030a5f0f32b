#pragma once

#include "commandline/dock/Shell.h"

namespace tarnwell::commandline {

enum class Restart {
  done,
  noDock,   // there was none that could be restarted
  notBack,  // or the tool has failed
};

/// The command line that restarts the Dock.
inline constexpr const char* restartLine = "killall Dock";

/// Restarts the Dock and sees a new one come, within five seconds.
Restart restartDock(Shell& shell);

}  // namespace tarnwell::commandline
