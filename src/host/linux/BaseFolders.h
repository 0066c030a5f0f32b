#pragma once

#include <filesystem>

namespace tarnwell::host_linux {

/// Where the user keeps settings: XDG_CONFIG_HOME or, where that is unset or not absolute, ~/.config. Empty without
/// both. (freedesktop.org: XDG base directories)
std::filesystem::path configurationFolder();

/// Where the user keeps what can be fetched again: XDG_CACHE_HOME, else ~/.cache. Empty without both.
std::filesystem::path cacheFolder();

}  // namespace tarnwell::host_linux
