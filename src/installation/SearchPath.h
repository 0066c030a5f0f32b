#pragma once

#include <string>
#include <string_view>

#include "system/base/Result.h"

namespace tarnwell::installation {

/// Puts the folder of the stand-ins of `program`, one of whose executables runs, first on this process's PATH, which
/// its children inherit: no `defaults` of another package is ever taken for ours. Programs that are started for the
/// user get the environment as it was before (UserEnvironment.h). Call it before anything else runs, while the process
/// has one thread. Returns why not, in which case PATH is as it was and no command may be run.
system::Result<void> putStandInsFirst(const std::string& program);

/// `before` with `folder` at the front and nowhere else. The system's own folders stand in for an empty `before`.
std::string searchPathWith(std::string_view folder, std::string_view before);

}  // namespace tarnwell::installation
