#pragma once

#include <string_view>

namespace tarnwell::standin {

/// Prints a message on standard error the way the system's log does: time, "defaults", process and thread, then the
/// message and a line feed, all in one write.
void logLine(std::string_view message);

}  // namespace tarnwell::standin
