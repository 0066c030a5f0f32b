#include "host/linux/updates/FileReplacement.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <system_error>
#include <utility>

#include "host/linux/updates/CopyFile.h"

namespace tarnwell::host_linux::updates {
namespace {

namespace fs = std::filesystem;

Failure cannotReplace(const fs::path& target) {
  return {"cannot replace " + target.string() + ": " + std::generic_category().message(errno)};
}

}  // namespace

FileReplacement::FileReplacement(core::Descriptor source, fs::path target)
    : source_(std::move(source)), target_(std::move(target)) {}

FileReplacement::FileReplacement(FileReplacement&& other) noexcept
    : source_(std::move(other.source_)),
      target_(std::move(other.target_)),
      draftName_(std::exchange(other.draftName_, {})),
      draft_(std::move(other.draft_)),
      position_(other.position_) {}

FileReplacement::~FileReplacement() {
  if (!draftName_.empty()) {
    ::unlink(draftName_.c_str());
  }
}

Result<FileReplacement> FileReplacement::begin(core::Descriptor source, fs::path target) {
  FileReplacement replacement(std::move(source), std::move(target));
  if (auto refused = replacement.open()) {
    return *std::move(refused);
  }
  return replacement;
}

Result<FileReplacement::Progress> FileReplacement::step() {
  const auto copied = copySome(source_.number(), position_, draft_.number());
  if (!copied) {
    return cannotReplace(target_);
  }
  if (*copied == 0) {
    if (auto refused = finish()) {
      return *std::move(refused);
    }
    return Progress::done;
  }
  // Begun early, so that there is little left to wait for at the end.
  ::sync_file_range(draft_.number(), position_, *copied, SYNC_FILE_RANGE_WRITE);
  position_ += *copied;
  return Progress::more;
}

std::optional<Failure> FileReplacement::open() {
  draftName_ = (target_.parent_path() / ("." + target_.filename().string() + ".XXXXXX")).string();
  draft_ = core::Descriptor(::mkostemp(draftName_.data(), O_CLOEXEC));
  if (draft_.isEmpty()) {
    draftName_.clear();
    return cannotReplace(target_);
  }
  return std::nullopt;
}

std::optional<Failure> FileReplacement::finish() {
  struct stat old = {};
  const bool isReady = ::stat(target_.c_str(), &old) == 0 && ::fchmod(draft_.number(), old.st_mode & 07777U) == 0 &&
                       ::fsync(draft_.number()) == 0;
  if (!isReady || ::rename(draftName_.c_str(), target_.c_str()) != 0) {
    return cannotReplace(target_);
  }
  draftName_.clear();
  return std::nullopt;
}

}  // namespace tarnwell::host_linux::updates
