#include "host/linux/updates/FileReplacement.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>
#include <utility>

#include "host/linux/updates/CopyFile.h"

namespace tarnwell::host_linux::updates {
namespace {

namespace fs = std::filesystem;

/// The same each time, so that what a power failure leaves behind is gone with the next update.
constexpr const char* replacementDraft = ".tarnwell-update";
constexpr mode_t unfinishedMode = 0600;
constexpr mode_t permissionBits = 0777;

Failure notReplaced(const fs::path& target, const std::string& reason, const std::string& advice) {
  return {"The new version cannot take the place of " + target.string() + ": " + reason + ". " + advice};
}

Failure notReplaceable(const fs::path& target, const std::string& reason) {
  return notReplaced(target, reason, "Get the new version from where you got Tarnwell.");
}

std::string systemReason() { return std::generic_category().message(errno); }

}  // namespace

FileReplacement::~FileReplacement() {
  if (!folder_.isEmpty()) {
    ::unlinkat(folder_.number(), replacementDraft, 0);
  }
}

Result<FileReplacement> FileReplacement::create(const fs::path& target) {
  core::Descriptor folder(::open(target.parent_path().c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  struct stat status = {};
  if (folder.isEmpty() || ::fstatat(folder.number(), target.filename().c_str(), &status, AT_SYMLINK_NOFOLLOW) != 0) {
    return notReplaceable(target, systemReason());
  }
  if (!S_ISREG(status.st_mode)) {
    return notReplaceable(target, "it is not a file");
  }
  return FileReplacement(target, core::aboveStandardStreams(std::move(folder)));
}

std::optional<Failure> FileReplacement::run(int source) const {
  const int folder = folder_.number();
  ::unlinkat(folder, replacementDraft, 0);
  const core::Descriptor draft(
      ::openat(folder, replacementDraft, O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, unfinishedMode));
  if (draft.isEmpty() || !fill(source, draft.number()) ||
      ::renameat(folder, replacementDraft, folder, target_.filename().c_str()) != 0) {
    return notReplaced(target_, systemReason(),
                       "The version that you have was left as it is. See that there is room and that you may write "
                       "there, and try again.");
  }
  // The new name survives a power failure only once the folder is on the disk. Not every file system can do that, and
  // the file is complete by now.
  ::fsync(folder);
  return std::nullopt;
}

bool FileReplacement::fill(int source, int draft) const {
  struct stat old = {};
  return copyFile(source, draft) &&
         ::fstatat(folder_.number(), target_.filename().c_str(), &old, AT_SYMLINK_NOFOLLOW) == 0 &&
         ::fchmod(draft, old.st_mode & permissionBits) == 0 && ::fsync(draft) == 0;
}

}  // namespace tarnwell::host_linux::updates
