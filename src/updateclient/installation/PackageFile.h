#pragma once

#include <chrono>
#include <filesystem>
#include <string_view>

#include "system/base/Descriptor.h"
#include "system/base/Result.h"
#include "system/files/PrivateFolder.h"

namespace tarnwell::updateclient {

/// A file for what is downloaded, without a name: only its descriptor leads to it, so that no process can put another
/// file in its place between verification and use. It vanishes with the object.
class PackageFile {
 public:
  /// An empty file in a folder that only the user can enter; the folder is made when it is not there.
  static system::Result<PackageFile> create(const std::filesystem::path& folder);

  /// To write it, and to read from any position. Borrowed.
  int descriptor() const { return file_.number(); }
  /// False, with errno set, when the disk took less.
  bool write(std::string_view bytes) const;
  /// Where it lies, held open.
  const system::PrivateFolder& folder() const { return folder_; }

 private:
  PackageFile(system::PrivateFolder folder, system::Descriptor file);

  system::PrivateFolder folder_;
  system::Descriptor file_;
};

/// Removes what has lain in the folder of downloads since before `time`. A folder that is not there, or that is another
/// user's, is left alone.
void removePackages(const std::filesystem::path& folder, std::chrono::system_clock::time_point time);

}  // namespace tarnwell::updateclient
