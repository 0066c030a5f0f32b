#pragma once

#include <filesystem>
#include <memory>
#include <optional>

#include "system/AtomicFile.h"
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
  explicit FileReplacement(const std::filesystem::path& target);

  std::filesystem::path target_;
  std::unique_ptr<system::AtomicFile> file_;
};

}  // namespace tarnwell::updater
