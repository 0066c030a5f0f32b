#pragma once

#include <string_view>

namespace tarnwell::system {

/// Writes all of it, however often a signal interrupts. False, with errno set, when some of it could not be written.
bool writeAll(int descriptor, std::string_view bytes);

}  // namespace tarnwell::system
