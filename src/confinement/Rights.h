#pragma once

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <vector>

namespace tarnwell::confinement {

/// What a process keeps when it gives up everything else. It always keeps what is open, its memory and its threads.
struct Rights {
  /// Sockets of the Internet. There are none of this machine's own programs for anything, a session bus say.
  bool usesNetwork = false;
  /// Files, and folders with all that is in them. What is not there is passed over.
  std::vector<std::filesystem::path> readable = {};
  /// Programs that it may start, and they each other. Everything else here holds for them as well.
  std::vector<std::filesystem::path> programs = {};
  /// A descriptor of one more file that may be opened anew, to read. Borrowed; none where it is -1.
  int readableFile = -1;
  /// Descriptors of folders in which files may be made, read, changed and removed. Borrowed.
  std::vector<int> writable = {};

  std::uint64_t memory = 0;    // Bytes of address space.
  std::uint64_t fileSize = 0;  // Bytes; a longer file cannot be written.
  unsigned seconds = 0;        // Of the processor's time.
  /// By the clock, from now on: the process is killed then, and cannot put it off. What it has started is not.
  std::chrono::milliseconds time = {};
};

}  // namespace tarnwell::confinement
