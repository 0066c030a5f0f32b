#include "updater/package/PackageFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <utility>

#include "system/UnnamedFile.h"

namespace tarnwell::updater {
namespace {

namespace fs = std::filesystem;

constexpr mode_t draftMode = 0600;
constexpr mode_t namedMode = 0400;
/// Of a file for the moment in which it has one.
constexpr const char* passingName = ".package";

std::string draftOf(const std::string& name) { return "." + name + ".draft"; }

// Not every file system has files without a name.
system::Descriptor namelessFile(int folder) {
  system::Descriptor file = system::openUnnamedFile(folder, draftMode);
  if (!file && (errno == EOPNOTSUPP || errno == EISDIR || errno == EINVAL)) {
    ::unlinkat(folder, passingName, 0);
    file = system::Descriptor(
        ::openat(folder, passingName, O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, draftMode));
    ::unlinkat(folder, passingName, 0);
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

std::optional<system::Failure> PackageFile::append(std::string_view bytes) {
  if (!file_.writeAll(bytes)) {
    return system::systemFailure("cannot keep the download");
  }
  length_ += bytes.size();
  return std::nullopt;
}

system::Result<fs::path> PackageFile::giveName(const std::string& name) const {
  if (name.empty() || name.front() == '.' || name.find('/') != std::string::npos) {
    return system::Failure{"\"" + name + "\" is no name for a package"};
  }
  if (::fchmod(file_.number(), namedMode) != 0) {
    return system::systemFailure("cannot protect the package");
  }
  // How long the installer has had it counts from here.
  ::futimens(file_.number(), nullptr);
  const std::string draft = draftOf(name);
  ::unlinkat(folder_.descriptor(), draft.c_str(), 0);
  system::Descriptor copied;
  if (!link(draft, name)) {
    auto made = copy(draft, name);
    if (!made) {
      return made.error();
    }
    copied = *std::move(made);
  }
  // The installer opens the package by its path.
  if (!folder_.leadsTo(name, !copied ? file_.number() : copied.number())) {
    removeName(name);
    return system::Failure{"another file was put in the place of the package in " + folder_.path().string()};
  }
  return placeOf(name);
}

void PackageFile::removeName(const std::string& name) const {
  ::unlinkat(folder_.descriptor(), draftOf(name).c_str(), 0);
  ::unlinkat(folder_.descriptor(), name.c_str(), 0);
}

// A name that is in use cannot be linked to, only be moved to.
bool PackageFile::link(const std::string& draft, const std::string& name) const {
  const int folder = folder_.descriptor();
  return system::nameFile(file_.number(), folder, draft) &&
         ::renameat(folder, draft.c_str(), folder, name.c_str()) == 0;
}

/// Returns the copy.
system::Result<system::Descriptor> PackageFile::copy(const std::string& draft, const std::string& name) const {
  const int folder = folder_.descriptor();
  system::Descriptor named(
      ::openat(folder, draft.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, namedMode));
  if (named && named.copyFrom(file_.number()) && ::renameat(folder, draft.c_str(), folder, name.c_str()) == 0) {
    return named;
  }
  system::Failure reason = system::systemFailure("cannot copy the package");
  ::unlinkat(folder, draft.c_str(), 0);
  return reason;
}

}  // namespace tarnwell::updater
