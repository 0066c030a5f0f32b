#include "updateclient/installation/PackageFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <string>
#include <system_error>
#include <utility>

namespace tarnwell::updateclient {
namespace {

namespace fs = std::filesystem;

constexpr mode_t draftMode = 0600;

// It has a name for a moment: not every file system has files without one.
system::Descriptor namelessFile(int folder) {
  const std::string passingName = ".package-" + std::to_string(::getpid());
  ::unlinkat(folder, passingName.c_str(), 0);
  system::Descriptor file(
      ::openat(folder, passingName.c_str(), O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, draftMode));
  if (file) {
    ::unlinkat(folder, passingName.c_str(), 0);
  }
  return system::aboveStandardStreams(std::move(file));
}

}  // namespace

PackageFile::PackageFile(system::PrivateFolder folder, system::Descriptor file)
    : folder_(std::move(folder)), file_(std::move(file)) {}

system::Result<PackageFile> PackageFile::create(const fs::path& folder) {
  auto made = system::PrivateFolder::make(folder);
  if (!made) {
    return made.error();
  }
  auto& opened = *made;
  system::Descriptor file = namelessFile(opened.descriptor());
  if (!file) {
    return system::systemFailure("cannot keep a download in " + folder.string());
  }
  return PackageFile(std::move(opened), std::move(file));
}

bool PackageFile::write(std::string_view bytes) const {
  return file_.writeAll(bytes) && ::lseek(file_.number(), 0, SEEK_SET) == 0;
}

void removePackages(const fs::path& folder, std::chrono::system_clock::time_point time) {
  // A link could lead to any folder of the user's.
  if (!system::PrivateFolder::open(folder)) {
    return;
  }
  std::error_code ignored;
  fs::directory_iterator entry(folder, ignored);
  for (; entry != fs::directory_iterator(); entry.increment(ignored)) {
    const auto written = std::chrono::file_clock::to_sys(entry->last_write_time(ignored));
    if (written < time) {
      fs::remove_all(entry->path(), ignored);
    }
  }
}

}  // namespace tarnwell::updateclient
