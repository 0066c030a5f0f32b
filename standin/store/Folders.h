#pragma once

#include <string>

namespace tarnwell::standin {

/// Makes the folder and whatever is missing above it, for the user alone (mode 0700), and has each new name reach the
/// disk. False with errno set when that fails.
bool makeFolders(const std::string& path);

/// Has the names in a folder reach the disk. False with errno set when that fails.
bool syncFolder(const std::string& path);

/// The folder that holds `path`: everything before the last slash, "/" at the top, "." without a slash.
std::string folderOf(const std::string& path);

/// What follows the last slash of `path`.
std::string nameOf(const std::string& path);

}  // namespace tarnwell::standin
