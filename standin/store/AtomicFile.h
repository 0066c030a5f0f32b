#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "system/Descriptor.h"
#include "system/Result.h"

namespace tarnwell::standin {

/// A file that takes the place of another in one step, or not at all: readers see the old bytes or the new ones, and a
/// crash leaves one of the two. It has no name while it is written, where the file system knows such files, so that
/// nothing is left of a process that is killed; `temporaryName`, beside the target, is for the moment of the change.
/// What a killed process left under that name is removed.
class AtomicFile {
 public:
  /// No other file may be on its way with that temporary name, but for one to the same target through place().
  AtomicFile(std::string target, const std::string& temporaryName);

  AtomicFile(const AtomicFile&) = delete;
  AtomicFile& operator=(const AtomicFile&) = delete;
  ~AtomicFile();

  /// Writes the whole content (mode 0600), has it reach the disk, and reads it back. To be called once.
  std::optional<system::Failure> write(std::string_view bytes);

  /// Puts the file in the target's place. A crash of the system may still lose it, never the bytes alone.
  std::optional<system::Failure> place();

  /// Puts the file in the target's place, for good. When the system cannot promise that it survives a crash, the target
  /// is put back as it was, and that is a failure.
  std::optional<system::Failure> commit();

 private:
  enum class Swap {
    exchanged,  // the target's old file has the temporary name
    placed,     // there was no target
    replaced,   // the target's old file is gone
    failed,
  };

  bool create();
  bool holds(std::string_view bytes) const;
  bool link(const std::string& name) const;
  bool takeName();
  Swap swapIn();
  void swapBack(Swap swap);

  system::Descriptor file_;
  std::string target_;
  std::string temporary_;
  bool isNamed_ = false;  // something of ours has the temporary name
};

}  // namespace tarnwell::standin
