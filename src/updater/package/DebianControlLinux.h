#pragma once

#include <optional>
#include <string>

namespace tarnwell::updater {

/// The version in the control file of a Debian package: one line without blanks around it, at most 200 bytes. Nothing
/// where there is none, or more than one.
std::optional<std::string> versionInControl(const std::string& control);

}  // namespace tarnwell::updater
