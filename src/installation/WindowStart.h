#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "system/base/Result.h"

namespace tarnwell::installation {

/// What the program that users start goes on as to show the window.
struct WindowStart {
  std::filesystem::path program = {};
  /// What it is called as, and its arguments.
  std::vector<std::string> words = {};
};

/// Of `front`, an executable of `program` that was called with these words. On Linux a helper program of its own,
/// called the same. On macOS the system's tool that opens the application around it, so that a second start comes to
/// the one that runs, and none ends with its terminal. A failure is a sentence: no window is installed.
system::Result<WindowStart> windowStart(const std::filesystem::path& front, const std::string& program,
                                        const std::vector<std::string>& words);

}  // namespace tarnwell::installation
