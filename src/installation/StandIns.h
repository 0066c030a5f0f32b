#pragma once

#include <string>

#include "system/base/Result.h"

namespace tarnwell::installation {

/// Puts the folder of the stand-ins of `program`, one of whose executables runs, first on this process's PATH, which
/// its children inherit: no `defaults` of another package is ever taken for ours. Programs that are started for the
/// user get the environment as it was before (UserEnvironment.h). macOS has the tools itself: there PATH stays as it
/// is. Call it before anything else runs, while the process has one thread. Returns why not, in which case PATH is as
/// it was and no command may be run.
system::Result<void> putStandInsFirst(const std::string& program);

/// What a user types to have the tool `defaults` that command lines of `program` find; no shell's PATH need lead to it.
std::string defaultsForUser(const std::string& program);

}  // namespace tarnwell::installation
