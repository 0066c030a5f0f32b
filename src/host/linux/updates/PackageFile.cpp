#include "host/linux/updates/PackageFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <system_error>
#include <utility>

#include "host/linux/MakeFolders.h"
#include "host/linux/updates/CopyFile.h"

namespace tarnwell::host_linux::updates {
namespace {

namespace fs = std::filesystem;

constexpr mode_t folderMode = 0700;
constexpr mode_t draftMode = 0600;
constexpr mode_t namedMode = 0400;

Failure failure(const std::string& what) { return {what + ": " + std::generic_category().message(errno)}; }

// What others could enter, or put in our way, is no place for a file that is going to be installed.
std::optional<Failure> makePrivate(const fs::path& folder) {
  if (!makeFolders(folder)) {
    return failure("cannot make the folder " + folder.string());
  }
  const core::Descriptor opened(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
  struct stat status = {};
  if (opened.isEmpty() || ::fstat(opened.number(), &status) != 0) {
    return failure("cannot enter the folder " + folder.string());
  }
  if (status.st_uid != ::geteuid()) {
    return Failure{"the folder " + folder.string() + " belongs to another user"};
  }
  if (::fchmod(opened.number(), folderMode) != 0) {
    return failure("cannot keep others out of the folder " + folder.string());
  }
  return std::nullopt;
}

// Not every file system has files without a name.
core::Descriptor namelessFile(const fs::path& folder) {
  core::Descriptor file(::open(folder.c_str(), O_TMPFILE | O_RDWR | O_CLOEXEC, draftMode));
  if (file.isEmpty() && (errno == EOPNOTSUPP || errno == EISDIR || errno == EINVAL)) {
    std::string name = (folder / ".package-XXXXXX").string();
    file = core::Descriptor(::mkostemp(name.data(), O_CLOEXEC));
    if (!file.isEmpty()) {
      ::unlink(name.c_str());
    }
  }
  return core::aboveStandardStreams(std::move(file));
}

std::string pathOf(int descriptor) { return "/proc/self/fd/" + std::to_string(descriptor); }

// A name that is in use cannot be linked to, only be moved to.
bool link(int descriptor, const fs::path& draft, const fs::path& target) {
  ::unlink(draft.c_str());
  return ::linkat(AT_FDCWD, pathOf(descriptor).c_str(), AT_FDCWD, draft.c_str(), AT_SYMLINK_FOLLOW) == 0 &&
         ::rename(draft.c_str(), target.c_str()) == 0;
}

std::optional<Failure> copy(int descriptor, const fs::path& draft, const fs::path& target) {
  ::unlink(draft.c_str());
  const core::Descriptor named(::open(draft.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, namedMode));
  off_t position = 0;
  while (!named.isEmpty()) {
    const auto copied = copySome(descriptor, position, named.number());
    if (!copied) {
      break;
    }
    if (*copied == 0) {
      return ::rename(draft.c_str(), target.c_str()) == 0 ? std::nullopt
                                                          : std::optional(failure("cannot name the package"));
    }
    position += *copied;
  }
  const Failure reason = failure("cannot copy the package");
  ::unlink(draft.c_str());
  return reason;
}

}  // namespace

PackageFile::PackageFile(fs::path folder, core::Descriptor file) : folder_(std::move(folder)), file_(std::move(file)) {}

Result<PackageFile> PackageFile::create(const fs::path& folder) {
  if (auto refused = makePrivate(folder)) {
    return *std::move(refused);
  }
  core::Descriptor file = namelessFile(folder);
  if (file.isEmpty()) {
    return failure("cannot keep a download in " + folder.string());
  }
  return PackageFile(folder, std::move(file));
}

std::optional<Failure> PackageFile::append(std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t count = ::write(file_.number(), bytes.data(), bytes.size());
    if (count < 0 && errno != EINTR) {
      return failure("cannot keep the download");
    }
    const auto written = static_cast<std::size_t>(count < 0 ? 0 : count);
    bytes.remove_prefix(written);
    length_ += written;
  }
  return std::nullopt;
}

Result<fs::path> PackageFile::giveName(const std::string& name) {
  if (name.empty() || name.front() == '.' || name.find('/') != std::string::npos) {
    return Failure{"\"" + name + "\" is no name for a package"};
  }
  if (::fchmod(file_.number(), namedMode) != 0) {
    return failure("cannot protect the package");
  }
  const fs::path draft = folder_ / ("." + name + ".draft");
  fs::path target = folder_ / name;
  if (link(file_.number(), draft, target)) {
    return target;
  }
  if (auto refused = copy(file_.number(), draft, target)) {
    return *std::move(refused);
  }
  return target;
}

}  // namespace tarnwell::host_linux::updates
