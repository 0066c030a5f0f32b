#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "system/Descriptor.h"
#include "system/Result.h"

namespace tarnwell::updater {

/// Puts one large file in the place of another: the old one stands until the new one is complete and on the disk, and
/// stays where anything fails. What is not finished goes with this object. Failures are sentences for people.
class FileReplacement {
 public:
  /// `target` is a file that exists, and no link to one.
  static system::Result<FileReplacement> create(const std::filesystem::path& target);
  FileReplacement(FileReplacement&&) = default;
  FileReplacement& operator=(FileReplacement&&) = delete;
  ~FileReplacement();

  /// With what `source` holds from its start to its end. The new file has the old one's permissions, but never lends
  /// its owner's rights. Blocks for as long as copying takes.
  std::optional<system::Failure> run(int source) const;

 private:
  FileReplacement(std::filesystem::path target, system::Descriptor folder);

  system::Descriptor newDraft() const;
  bool fill(int source, const system::Descriptor& draft) const;
  bool takePlace(int draft) const;

  std::filesystem::path target_;
  system::Descriptor folder_;
  std::string draftName_;  // Nobody else's.
};

}  // namespace tarnwell::updater
