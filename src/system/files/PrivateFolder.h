#pragma once

#include <filesystem>
#include <string>

#include "system/base/Descriptor.h"
#include "system/base/Result.h"

namespace tarnwell::system {

/// A folder of the user's that no other user can enter, held open: wherever its path leads later, what is named through
/// the descriptor is in this folder.
class PrivateFolder {
 public:
  /// Makes it, and those above it, where they are missing, and keeps others out of it. Refuses a symbolic link, what
  /// belongs to another user, and what lies in a folder that another user could swap.
  static Result<PrivateFolder> make(const std::filesystem::path& path);
  /// The same for a folder that is there; nothing is made and nothing changed.
  static Result<PrivateFolder> open(const std::filesystem::path& path);

  /// Where it was found.
  const std::filesystem::path& path() const { return path_; }
  /// For calls that take a name in a folder. Borrowed.
  int descriptor() const { return folder_.number(); }
  /// Whether its path still leads to it, and that name in it to the file behind `file`.
  bool leadsTo(const std::string& name, int file) const;

 private:
  PrivateFolder(std::filesystem::path path, Descriptor folder);

  std::filesystem::path path_;
  Descriptor folder_;
};

}  // namespace tarnwell::system
