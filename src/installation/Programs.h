#pragma once

#include <filesystem>
#include <string>

#include "system/base/Result.h"

namespace tarnwell::installation {

/// The helper program `name` of an executable that lies in `folder`: in libexec beside the executable, as in a build
/// tree, else in the folder PROGRAM of the build's LIBEXECDIR, by its way from BINDIR, as installed.
system::Result<std::filesystem::path> libexecProgram(const std::filesystem::path& folder, const std::string& program,
                                                     const std::string& name);

/// The other way round: the executable `program`, which users start, whose helper program `executable` is; `executable`
/// itself where it is nothing's helper.
std::filesystem::path frontOf(const std::filesystem::path& executable, const std::string& program);

}  // namespace tarnwell::installation
