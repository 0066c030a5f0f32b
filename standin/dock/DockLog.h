#pragma once

#include <string>
#include <string_view>

namespace tarnwell::standin {

/// How large the log may grow, in bytes. The log before it is kept as Dock.log.1, so two of these are on the disk.
inline constexpr long dockLogLimit = 1024L * 1024;

/// Appends a line and its line feed to Dock.log in `folder` in one write, making the folder when missing. False with
/// errno set when the line could not be written.
bool appendToDockLog(const std::string& folder, std::string_view line);

}  // namespace tarnwell::standin
