#pragma once

#include <string>

namespace tarnwell::host_linux::updates {

/// The bytes of a Debian package that the system's own tool has built. `content` is in it as it is.
std::string realPackage(const std::string& version, const std::string& content = "");

}  // namespace tarnwell::host_linux::updates
