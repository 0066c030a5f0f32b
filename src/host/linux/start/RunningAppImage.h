#pragma once

#include <filesystem>
#include <optional>

namespace tarnwell::host_linux {

/// The AppImage that `executable` runs from, as the environment names it; nothing where the names are those of another
/// AppImage, from which this program was only started.
std::optional<std::filesystem::path> runningAppImage(const std::filesystem::path& executable);

/// What starts the program of `executable` again, also when this process has ended: nothing of a mounted AppImage is
/// there any more then.
std::filesystem::path programToStart(const std::filesystem::path& executable);

}  // namespace tarnwell::host_linux
