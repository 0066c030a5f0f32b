#pragma once

#include <cstdint>
#include <filesystem>

#include "system/base/Descriptor.h"
#include "system/base/Result.h"

namespace tarnwell::publish {

/// A file that the updater could install.
class Package {
 public:
  /// Refuses what is no Debian package and no AppImage, and what is larger than the updater takes.
  static system::Result<Package> open(const std::filesystem::path& file);

  /// Borrowed.
  int descriptor() const { return file_.number(); }
  /// Bytes.
  std::uint64_t length() const { return length_; }

 private:
  Package(system::Descriptor file, std::uint64_t length) : file_(std::move(file)), length_(length) {}

  system::Descriptor file_;
  std::uint64_t length_ = 0;
};

}  // namespace tarnwell::publish
