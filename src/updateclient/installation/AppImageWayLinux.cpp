#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>
#include <system_error>
#include <utility>

#include "system/files/Folders.h"
#include "updateclient/installation/InstallationWay.h"

namespace tarnwell::updateclient {
namespace {

using Target = InstallationWay::Target;

system::Failure notReplaceable(const std::filesystem::path& image, const std::string& reason) {
  return {"The new version cannot take the place of " + image.string() + ": " + reason +
          ". Get the new version from where you got " TARNWELL_NAME "."};
}

system::Result<Target> imageTarget(const PackageFile& /*package*/, const std::filesystem::path& image) {
  if (image.empty()) {
    return system::Failure{"The update is an AppImage, but " TARNWELL_NAME
                           " does not run from one. Get the package for your system from "
                           "where you got " TARNWELL_NAME "."};
  }
  system::Descriptor folder(::open(system::folderOf(image).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  struct stat status = {};
  if (!folder || ::fstatat(folder.number(), image.filename().c_str(), &status, AT_SYMLINK_NOFOLLOW) != 0) {
    return notReplaceable(image, std::generic_category().message(errno));
  }
  return S_ISREG(status.st_mode) ? system::Result<Target>(Target{.path = image, .folder = std::move(folder)})
                                 : notReplaceable(image, "it is not a file");
}

}  // namespace

constinit const InstallationWay appImageWay = {
    .kind = "app-image", .target = &imageTarget, .handOver = HandOver::replaced};

}  // namespace tarnwell::updateclient
