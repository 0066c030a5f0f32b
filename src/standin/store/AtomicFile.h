#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "standin/store/Descriptor.h"

namespace tarnwell::standin {

/// A file that takes the place of another in one step, or not at all: readers see the old bytes or the new ones, and a
/// crash leaves one of the two. Its destructor removes the temporary file of a replacement that did not happen.
class AtomicFile {
 public:
  /// Starts a temporary file (mode 0600) beside `target`, with a name that no other writer uses at this time. A
  /// leftover of that name, from a writer that was killed, is removed. Nothing, with errno set, when that fails.
  static std::optional<AtomicFile> create(std::string target, const std::string& temporaryName);

  AtomicFile(AtomicFile&& other) noexcept;
  AtomicFile& operator=(AtomicFile&&) = delete;
  ~AtomicFile();

  /// Writes the whole content and has it reach the disk. False with errno set when that fails.
  bool fill(std::string_view bytes);

  /// Puts the file in the target's place, for good. When the system cannot promise that it survives a crash, the target
  /// is put back as it was, and the answer is false.
  bool commit();

 private:
  enum class Swap {
    exchanged,  // the target's old file has the temporary name
    placed,     // there was no target
    replaced,   // the target's old file is gone
    failed,
  };

  AtomicFile(Descriptor file, std::string target, std::string temporary)
      : file_(std::move(file)), target_(std::move(target)), temporary_(std::move(temporary)) {}

  Swap swapIn();

  Descriptor file_;
  std::string target_;
  std::string temporary_;  // empty once it is gone
};

}  // namespace tarnwell::standin
