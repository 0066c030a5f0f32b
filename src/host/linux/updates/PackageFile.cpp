#include "host/linux/updates/PackageFile.h"

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

constexpr mode_t draftMode = 0600;
constexpr mode_t namedMode = 0400;

Failure failure(const std::string& what) { return {what + ": " + std::generic_category().message(errno)}; }

// Not every file system has files without a name.
core::Descriptor unnamedAgain(int folder) {
  constexpr int mostDrafts = 100;
  for (int number = 1; number <= mostDrafts; ++number) {
    const std::string name = ".package-" + std::to_string(number);
    core::Descriptor file(
        ::openat(folder, name.c_str(), O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, draftMode));
    if (!file.isEmpty()) {
      ::unlinkat(folder, name.c_str(), 0);
      return file;
    }
    if (errno != EEXIST) {
      break;
    }
  }
  return {};
}

core::Descriptor namelessFile(int folder) {
  core::Descriptor file(::openat(folder, ".", O_TMPFILE | O_RDWR | O_CLOEXEC, draftMode));
  if (file.isEmpty() && (errno == EOPNOTSUPP || errno == EISDIR || errno == EINVAL)) {
    file = unnamedAgain(folder);
  }
  return core::aboveStandardStreams(std::move(file));
}

std::string pathOf(int descriptor) { return "/proc/self/fd/" + std::to_string(descriptor); }

// A name that is in use cannot be linked to, only be moved to.
bool link(int descriptor, int folder, const std::string& draft, const std::string& target) {
  ::unlinkat(folder, draft.c_str(), 0);
  return ::linkat(AT_FDCWD, pathOf(descriptor).c_str(), folder, draft.c_str(), AT_SYMLINK_FOLLOW) == 0 &&
         ::renameat(folder, draft.c_str(), folder, target.c_str()) == 0;
}

/// Returns the copy.
Result<core::Descriptor> copyOf(int descriptor, int folder, const std::string& draft, const std::string& target) {
  ::unlinkat(folder, draft.c_str(), 0);
  core::Descriptor named(
      ::openat(folder, draft.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, namedMode));
  off_t position = 0;
  while (!named.isEmpty()) {
    const auto copied = copySome(descriptor, position, named.number());
    if (!copied) {
      break;
    }
    if (*copied == 0) {
      return ::renameat(folder, draft.c_str(), folder, target.c_str()) == 0 ? Result<core::Descriptor>(std::move(named))
                                                                            : failure("cannot name the package");
    }
    position += *copied;
  }
  Failure reason = failure("cannot copy the package");
  ::unlinkat(folder, draft.c_str(), 0);
  return reason;
}

}  // namespace

PackageFile::PackageFile(PrivateFolder folder, core::Descriptor file)
    : folder_(std::move(folder)), file_(std::move(file)) {}

Result<PackageFile> PackageFile::create(const fs::path& folder) {
  auto made = PrivateFolder::make(folder);
  if (auto* refused = std::get_if<Failure>(&made)) {
    return std::move(*refused);
  }
  auto& opened = std::get<PrivateFolder>(made);
  core::Descriptor file = namelessFile(opened.descriptor());
  if (file.isEmpty()) {
    return failure("cannot keep a download in " + folder.string());
  }
  return PackageFile(std::move(opened), std::move(file));
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
  const std::string draft = "." + name + ".draft";
  core::Descriptor copied;
  if (!link(file_.number(), folder_.descriptor(), draft, name)) {
    auto copy = copyOf(file_.number(), folder_.descriptor(), draft, name);
    if (auto* refused = std::get_if<Failure>(&copy)) {
      return std::move(*refused);
    }
    copied = std::get<core::Descriptor>(std::move(copy));
  }
  // Whoever opens the package goes by its path.
  if (!folder_.leadsTo(name, copied.isEmpty() ? file_.number() : copied.number())) {
    ::unlinkat(folder_.descriptor(), name.c_str(), 0);
    return Failure{"another file was put in the place of the package in " + folder_.path().string()};
  }
  return folder_.path() / name;
}

}  // namespace tarnwell::host_linux::updates
