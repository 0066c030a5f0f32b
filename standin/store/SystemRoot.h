#pragma once

#include <functional>
#include <optional>
#include <string>

namespace tarnwell::standin {

/// The folder that plays the user's home on macOS.
struct SystemRoot {
  std::optional<std::string> folder = {};  ///< In UTF-8. Need not exist yet.
  std::string problem = {};                ///< Why there is none, as a sentence for the user.
};

/// $MACOS_ROOT, else macos-standin in $XDG_DATA_HOME, which itself falls back on ~/.local/share.
SystemRoot systemRoot();

/// The same of another environment, whose variables `variable` gives; an empty text where there is none of that name.
SystemRoot systemRoot(const std::function<std::string(const std::string& name)>& variable);

std::string preferencesFolder(const std::string& root);
std::string logsFolder(const std::string& root);

}  // namespace tarnwell::standin
