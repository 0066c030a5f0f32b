#pragma once

#include <string>

namespace tarnwell::system {

/// How new the system is, as numbers with points between: of macOS the version of the product, of Linux that of the
/// kernel.
std::string systemVersion();

}  // namespace tarnwell::system
