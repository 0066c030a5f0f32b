#pragma once

#include <functional>
#include <optional>
#include <string>

namespace tarnwell::standin {

/// The folder that plays the user's home on macOS: $MACOS_ROOT, else macos-standin in $XDG_DATA_HOME, which itself
/// falls back on ~/.local/share. Nothing when none of the three variables tells. The folder need not exist yet.
std::optional<std::string> systemRoot();

/// The same of another environment, whose variables `variable` gives; an empty text where there is none of that name.
std::optional<std::string> systemRoot(const std::function<std::string(const std::string& name)>& variable);

/// What to tell the user when there is no root.
inline constexpr const char* noRootMessage = "None of MACOS_ROOT, XDG_DATA_HOME and HOME says where preferences are.";

std::string preferencesFolder(const std::string& root);
std::string logsFolder(const std::string& root);

}  // namespace tarnwell::standin
