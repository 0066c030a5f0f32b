#include "updater/package/FileReplacement.h"

#include <sys/stat.h>

#include <cerrno>
#include <system_error>

namespace tarnwell::updater {
namespace {

namespace fs = std::filesystem;

constexpr mode_t unusedMode = 0700;  // There is an old file, and its permissions stay.

system::Failure notReplaced(const fs::path& target, const std::string& reason, const std::string& advice) {
  return {"The new version cannot take the place of " + target.string() + ": " + reason + ". " + advice};
}

system::Failure notReplaceable(const fs::path& target, const std::string& reason) {
  return notReplaced(target, reason, "Get the new version from where you got Tarnwell.");
}

std::string reasonOf(int error) { return std::generic_category().message(error); }

}  // namespace

FileReplacement::FileReplacement(const fs::path& target)
    : target_(target), file_(std::make_unique<system::AtomicFile>(target, unusedMode)) {}

// What it was run in, a copy of this process, may have been ended.
FileReplacement::~FileReplacement() {
  if (file_) {
    file_->removeRemains();
  }
}

system::Result<FileReplacement> FileReplacement::create(const fs::path& target) {
  struct stat status = {};
  if (::lstat(target.c_str(), &status) != 0) {
    return notReplaceable(target, reasonOf(errno));
  }
  if (!S_ISREG(status.st_mode)) {
    return notReplaceable(target, "it is not a file");
  }
  return FileReplacement(target);
}

std::optional<system::Failure> FileReplacement::run(int source) const {
  auto result = file_->copy(source);
  if (result) {
    result = file_->place();
  }
  if (result) {
    return std::nullopt;
  }
  return notReplaced(target_, reasonOf(result.error().error),
                     "The version that you have was left as it is. See that there is room and that you may write "
                     "there, and try again.");
}

}  // namespace tarnwell::updater
