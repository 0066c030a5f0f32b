#pragma once

#include <functional>
#include <string>

#include "system/base/Result.h"

namespace tarnwell::standin {

/// The folder that plays the user's home on macOS, in UTF-8; it need not exist yet. $MACOS_ROOT, else macos-standin in
/// $XDG_DATA_HOME, which itself falls back on ~/.local/share. A failure is a sentence for the user.
system::Result<std::string> systemRoot();

/// The same of another environment, whose variables `variable` gives; an empty text where there is none of that name.
system::Result<std::string> systemRoot(const std::function<std::string(const std::string& name)>& variable);

std::string preferencesFolder(const std::string& root);
std::string logsFolder(const std::string& root);

}  // namespace tarnwell::standin
