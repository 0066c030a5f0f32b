#include "publish/Package.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>
#include <system_error>

#include "updater/package/PackageClaim.h"
#include "updater/package/PackageKind.h"

namespace tarnwell::publish {

system::Result<Package> Package::open(const std::filesystem::path& file) {
  // What is no file, a pipe for one, must not hold us up.
  system::Descriptor opened =
      system::aboveStandardStreams(system::Descriptor(::open(file.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC)));
  struct stat status = {};
  if (!opened || ::fstat(opened.number(), &status) != 0) {
    return system::systemFailure("cannot read " + file.string());
  }
  if (!S_ISREG(status.st_mode)) {
    return system::Failure{file.string() + " is not a file"};
  }
  const auto length = static_cast<std::uint64_t>(status.st_size);
  if (length > updater::PackageClaim::maximumLength) {
    return system::Failure{file.string() + " is larger than " +
                           std::to_string(updater::PackageClaim::maximumLength / 1024 / 1024) +
                           " MiB, and the updater takes no more"};
  }
  if (updater::packageKind(opened.number()) == nullptr) {
    return system::Failure{file.string() + " is " + updater::noInstalledKind +
                           ", and the updater installs nothing else"};
  }
  return Package(std::move(opened), length);
}

}  // namespace tarnwell::publish
