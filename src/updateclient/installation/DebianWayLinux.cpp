#include <fcntl.h>
#include <unistd.h>

#include "updateclient/installation/InstallationWay.h"

namespace tarnwell::updateclient {
namespace {

// Downloads have a folder that is held open, whatever its path leads to by now.
system::Result<InstallationWay::Target> packageTarget(const PackageFile& package,
                                                      const std::filesystem::path& /*program*/) {
  return InstallationWay::Target{
      .path = package.folder().path() / "tarnwell-update.deb",
      .folder = system::Descriptor(::fcntl(package.folder().descriptor(), F_DUPFD_CLOEXEC, STDERR_FILENO + 1))};
}

}  // namespace

constinit const InstallationWay debianWay = {.kind = "debian", .target = &packageTarget, .handOver = HandOver::opened};

}  // namespace tarnwell::updateclient
