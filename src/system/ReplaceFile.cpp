#include "system/ReplaceFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <string>
#include <system_error>

#include "system/Descriptor.h"
#include "system/MakeFolders.h"

namespace tarnwell::system {
namespace {

constexpr mode_t newFileMode = 0644;

// A file beside the one that it is to replace; removed unless it took that one's place.
class Draft {
 public:
  explicit Draft(const std::filesystem::path& target)
      : target_(target), name_(target.parent_path() / ("." + target.filename().string() + ".XXXXXX")) {
    file_ = Descriptor(::mkostemp(name_.data(), O_CLOEXEC));
  }
  Draft(const Draft&) = delete;
  Draft& operator=(const Draft&) = delete;
  ~Draft() {
    if (file_) {
      ::unlink(name_.c_str());
    }
  }

  bool isOpen() const { return static_cast<bool>(file_); }

  bool write(std::string_view content) const {
    return file_.writeAll(content) && ::fchmod(file_.number(), modeOfTarget()) == 0 && ::fsync(file_.number()) == 0;
  }

  bool takePlace() {
    // Some file systems report a failed write no sooner than here.
    if (file_.close() && ::rename(name_.c_str(), target_.c_str()) == 0) {
      return true;
    }
    const int error = errno;
    ::unlink(name_.c_str());
    errno = error;
    return false;
  }

 private:
  mode_t modeOfTarget() const {
    struct stat status = {};
    const bool isFile = ::lstat(target_.c_str(), &status) == 0 && S_ISREG(status.st_mode);
    return isFile ? status.st_mode & 07777U : newFileMode;
  }

  std::filesystem::path target_;
  std::string name_;
  Descriptor file_;
};

// The new name survives a power failure only once the folder is on the disk. Not every file system can do that, and
// the file is complete by now.
void syncFolder(const std::filesystem::path& folder) {
  const Descriptor opened(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  ::fsync(opened.number());
}

Failure failure(const std::filesystem::path& path) {
  return {"cannot write " + path.string() + ": " + std::system_category().message(errno)};
}

}  // namespace

std::optional<Failure> replaceFile(const std::filesystem::path& path, std::string_view content) {
  if (!makeFolders(path.parent_path())) {
    return failure(path);
  }
  Draft draft(path);
  if (!draft.isOpen() || !draft.write(content) || !draft.takePlace()) {
    return failure(path);
  }
  syncFolder(path.parent_path());
  return std::nullopt;
}

}  // namespace tarnwell::system
