#include "updater/package/FileReplacement.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <random>
#include <system_error>
#include <utility>

namespace tarnwell::updater {
namespace {

namespace fs = std::filesystem;

constexpr mode_t unfinishedMode = 0600;
constexpr mode_t permissionBits = 0777;

system::Failure notReplaced(const fs::path& target, const std::string& reason, const std::string& advice) {
  return {"The new version cannot take the place of " + target.string() + ": " + reason + ". " + advice};
}

system::Failure notReplaceable(const fs::path& target, const std::string& reason) {
  return notReplaced(target, reason, "Get the new version from where you got Tarnwell.");
}

/// Others may be updating what is theirs in the same folder.
std::string uniqueName() {
  std::random_device random;
  return ".tarnwell-update-" + std::to_string(random()) + "-" + std::to_string(random());
}

std::string systemReason() { return std::generic_category().message(errno); }

}  // namespace

FileReplacement::FileReplacement(fs::path target, system::Descriptor folder)
    : target_(std::move(target)), folder_(std::move(folder)), draftName_(uniqueName()) {}

FileReplacement::~FileReplacement() {
  if (folder_) {
    ::unlinkat(folder_.number(), draftName_.c_str(), 0);
  }
}

system::Result<FileReplacement> FileReplacement::create(const fs::path& target) {
  system::Descriptor folder(::open(target.parent_path().c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  struct stat status = {};
  if (!folder || ::fstatat(folder.number(), target.filename().c_str(), &status, AT_SYMLINK_NOFOLLOW) != 0) {
    return notReplaceable(target, systemReason());
  }
  if (!S_ISREG(status.st_mode)) {
    return notReplaceable(target, "it is not a file");
  }
  return FileReplacement(target, system::aboveStandardStreams(std::move(folder)));
}

std::optional<system::Failure> FileReplacement::run(int source) const {
  const system::Descriptor draft = newDraft();
  if (!draft || !fill(source, draft) || !takePlace(draft.number())) {
    return notReplaced(target_, systemReason(),
                       "The version that you have was left as it is. See that there is room and that you may write "
                       "there, and try again.");
  }
  // The new name survives a power failure only once the folder is on the disk. Not every file system can do that, and
  // the file is complete by now.
  ::fsync(folder_.number());
  return std::nullopt;
}

// Without a name as long as it can be, so that nothing is left behind where we are ended. Not every file system has
// such files.
system::Descriptor FileReplacement::newDraft() const {
  system::Descriptor draft(::openat(folder_.number(), ".", O_TMPFILE | O_WRONLY | O_CLOEXEC, unfinishedMode));
  if (!draft) {
    draft = system::Descriptor(::openat(folder_.number(), draftName_.c_str(),
                                        O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, unfinishedMode));
  }
  return draft;
}

bool FileReplacement::fill(int source, const system::Descriptor& draft) const {
  struct stat old = {};
  return draft.copyFrom(source) &&
         ::fstatat(folder_.number(), target_.filename().c_str(), &old, AT_SYMLINK_NOFOLLOW) == 0 &&
         ::fchmod(draft.number(), old.st_mode & permissionBits) == 0 && ::fsync(draft.number()) == 0;
}

bool FileReplacement::takePlace(int draft) const {
  const int folder = folder_.number();
  const std::string file = "/proc/self/fd/" + std::to_string(draft);
  const bool isNamed =
      ::linkat(AT_FDCWD, file.c_str(), folder, draftName_.c_str(), AT_SYMLINK_FOLLOW) == 0 || errno == EEXIST;
  return isNamed && ::renameat(folder, draftName_.c_str(), folder, target_.filename().c_str()) == 0;
}

}  // namespace tarnwell::updater
