#pragma once

#include <sys/types.h>

#include <filesystem>
#include <string>
#include <string_view>

#include "system/base/Descriptor.h"
#include "system/base/Result.h"

namespace tarnwell::system {

/// A file that takes the place of another in one step, or not at all: readers see the old bytes or the new ones, and a
/// crash leaves one of the two. It has no name while it is written, where the file system knows such files, so that
/// nothing is left of a process that is killed; for the moment of the change it has one beside the target, and what a
/// killed process left under that is removed. The folder is held open: whatever its path leads to later, the file stays
/// in this one.
///
/// A target keeps its permissions, but never lends its owner's rights; what is a symbolic link becomes a file. Failures
/// name the target and have the system's reason.
class AtomicFile {
 public:
  /// `newMode` are the permissions where there is no target yet; its folder must exist.
  AtomicFile(const std::filesystem::path& target, mode_t newMode);
  /// The same in a folder that the caller has opened, whatever the path of `target` leads to by now.
  AtomicFile(Descriptor folder, const std::filesystem::path& target, mode_t newMode);
  AtomicFile(const AtomicFile&) = delete;
  AtomicFile& operator=(const AtomicFile&) = delete;
  /// Removes what did not take its place.
  ~AtomicFile();

  /// Writes the whole content, has it reach the disk, and reads it back. To be called once, or else `copy`.
  Result<void> write(std::string_view bytes);
  /// Writes what the file `source` holds from its start to its end. Blocks for as long as that takes.
  Result<void> copy(int source);

  /// What was written, to read; borrowed. -1 before that.
  int descriptor() const { return file_.number(); }

  /// Puts the file in the target's place. On file systems that cannot promise more, a crash of the system may still
  /// lose it, never the bytes alone.
  Result<void> place();

  /// Puts the file in the target's place, for good. When the system cannot promise that it survives a crash, the target
  /// is put back as it was, and that is a failure. Only where other writers are kept away from the target.
  Result<void> commit();

  /// Removes what a copy of this process left that was killed on its way.
  void removeRemains() const;

  /// Where the file is for the moment of the change: no other one beside the target has that name.
  static std::filesystem::path passingPath(const std::filesystem::path& target);

 private:
  enum class Swap {
    exchanged,  // the target's old file has the passing name
    placed,     // there was no target
    replaced,   // the target's old file is gone
    failed,
  };

  Failure failure(const std::string& what) const;
  bool create();
  bool finish();
  bool holds(std::string_view bytes) const;
  bool takeName();
  Swap swapIn();
  void swapBack(Swap swap);

  std::string path_;
  mode_t newMode_;
  Descriptor folder_;
  std::string target_;  // names in the folder
  std::string passing_;
  int folderError_;  // where there is no folder
  Descriptor file_;
  bool isNamed_ = false;  // something of ours has the passing name
};

/// Puts `content` in the place of the file at `path`: wholly or not at all, even when the power fails. Missing folders
/// are made, for their owner alone; a new file can be read by all users. A failure is "cannot write PATH: reason".
Result<void> replaceFile(const std::filesystem::path& path, std::string_view content);

}  // namespace tarnwell::system
