#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "system/Descriptor.h"
#include "system/PrivateFolder.h"
#include "system/Result.h"

namespace tarnwell::updater {

/// A downloaded package that has no name yet: only its descriptor leads to it, so that no process can put another file
/// in its place between verification and use. It vanishes with the object unless it was given a name.
class PackageFile {
 public:
  /// An empty file in a folder that only the user can enter; the folder is made when it is not there.
  static system::Result<PackageFile> create(const std::filesystem::path& folder);

  /// After a failure the file is incomplete and of no use.
  std::optional<system::Failure> append(std::string_view bytes);
  /// Bytes appended so far.
  std::uint64_t length() const { return length_; }
  /// To read from, at any position. Borrowed.
  int descriptor() const { return file_.number(); }
  /// Gives this very file a name in its folder, replacing what had it, and makes it read-only. Where the file system
  /// cannot name a file that has no name, a copy of it is made, which takes its time. `name` is a plain file name.
  /// Fails when the path would lead to anything else, as when the folder is not where it was.
  system::Result<std::filesystem::path> giveName(const std::string& name) const;
  /// Takes away what has the name, and what was to have it.
  void removeName(const std::string& name) const;
  /// Where a file with this name is.
  std::filesystem::path placeOf(const std::string& name) const { return folder_.path() / name; }

 private:
  PackageFile(system::PrivateFolder folder, system::Descriptor file);

  bool link(const std::string& draft, const std::string& name) const;
  system::Result<system::Descriptor> copy(const std::string& draft, const std::string& name) const;

  system::PrivateFolder folder_;
  system::Descriptor file_;
  std::uint64_t length_ = 0;
};

}  // namespace tarnwell::updater
