#pragma once

#include <filesystem>

namespace tarnwell::installation {

/// Where the user keeps settings: XDG_CONFIG_HOME or, where that is unset or not absolute, ~/.config. Empty without
/// both. (freedesktop.org: XDG base directories)
std::filesystem::path configurationFolder();

/// Where the user keeps what can be fetched again: XDG_CACHE_HOME, else ~/.cache. Empty without both.
std::filesystem::path cacheFolder();

/// Where programs keep what they remember of their use: XDG_STATE_HOME, else ~/.local/state. Empty without both.
std::filesystem::path stateFolder();

}  // namespace tarnwell::installation
