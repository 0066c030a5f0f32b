#pragma once

#include <string>

namespace tarnwell::updater {

/// The bytes of a Debian package that the system's own tool has built. `content` is in it as it is, unless compressed.
std::string realPackage(const std::string& version, const std::string& content = "",
                        const std::string& compression = "none");

}  // namespace tarnwell::updater
