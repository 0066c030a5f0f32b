#pragma once

#include <sys/types.h>

#include <filesystem>
#include <optional>
#include <string>
#include <variant>

#include "core/Descriptor.h"
#include "host/linux/Result.h"

namespace tarnwell::host_linux::updates {

/// Puts one large file in the place of another, step by step: the old one stands until the new one is complete, and
/// stays where anything fails. What is not finished leaves nothing behind.
class FileReplacement {
 public:
  enum class Progress { more, done };

  /// `source` is read from its start; `target` exists, and its mode is kept.
  static Result<FileReplacement> begin(core::Descriptor source, std::filesystem::path target);
  FileReplacement(FileReplacement&& other) noexcept;
  FileReplacement& operator=(FileReplacement&&) = delete;
  ~FileReplacement();

  /// Copies a part that takes a moment.
  Result<Progress> step();

 private:
  FileReplacement(core::Descriptor source, std::filesystem::path target);

  std::optional<Failure> open();
  std::optional<Failure> finish();

  core::Descriptor source_;
  std::filesystem::path target_;
  std::string draftName_;
  core::Descriptor draft_;
  off_t position_ = 0;
};

}  // namespace tarnwell::host_linux::updates
