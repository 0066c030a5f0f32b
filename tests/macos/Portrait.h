#pragma once

#include <filesystem>
#include <string>

#include "kit/control/Window.h"

namespace tarnwell::macos {

/// Writes what `window` looks like now, and where its controls stand, to NAME.png and NAME.txt in `folder`. False where
/// a file could not be written.
bool portray(const kit::Window& window, const std::filesystem::path& folder, const std::string& name);

}  // namespace tarnwell::macos
