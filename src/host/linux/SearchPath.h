#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "system/Result.h"

namespace tarnwell::host_linux {

/// Puts the folder of the stand-ins of `program` first on this process's PATH, which its children inherit: no
/// `defaults` of another package is ever taken for ours. Programs that are started for the user get the environment as
/// it was before (UserEnvironment.h). Call it before anything else runs, while the process has one thread. Returns why
/// not, in which case PATH is as it was and no command may be run.
system::Result<void> putStandInsFirst(const std::string& program);

/// The helper program `name` of an executable that lies in `folder`: in libexec beside the executable, as in a build
/// tree, else in ../libexec/PROGRAM, as installed.
system::Result<std::filesystem::path> libexecProgram(const std::filesystem::path& folder, const std::string& program,
                                                     const std::string& name);

/// `before` with `folder` at the front and nowhere else. The system's own folders stand in for an empty `before`.
std::string searchPathWith(std::string_view folder, std::string_view before);

}  // namespace tarnwell::host_linux
