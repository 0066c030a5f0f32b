#include <fcntl.h>
#include <unistd.h>

#include <chrono>

#include "system/Pipe.h"
#include "system/Process.h"
#include "updater/package/PackageKind.h"

namespace tarnwell::updater {
namespace {

constexpr std::chrono::seconds toolLimit(30);
constexpr std::size_t longestVersion = 200;  // Bytes.

system::Failure unreadable(const std::string& reason) {
  return {"The downloaded update was thrown away, because it cannot be seen which version it is: " + reason + "."};
}

bool isDebianPackage(std::string_view start) { return start.starts_with("!<arch>\ndebian-binary"); }

// As the system's own tool reads it.
system::Result<std::string> debianVersion(int descriptor) {
  system::Pipe pipe = system::Pipe::create("look into a package");
  // The tool's own standard streams would take its place.
  const system::Descriptor package(::fcntl(descriptor, F_DUPFD_CLOEXEC, STDERR_FILENO + 1));
  const system::Descriptor nothing(::open("/dev/null", O_WRONLY | O_CLOEXEC));
  // It finds the package at 3, reads nothing else, and goes with us or when its time is up.
  auto tool = system::Process::start({.words = {"dpkg-deb", "--field", "/proc/self/fd/3", "Version"},
                                      .output = pipe.writeEnd.number(),
                                      .errors = nothing.number(),
                                      .extra = package.number(),
                                      .endsWithStarter = true,
                                      .limit = toolLimit});
  if (!tool) {
    return unreadable("it is a Debian package, and this system has no dpkg-deb to look into it");
  }
  pipe.writeEnd.close();
  std::string version = pipe.readEnd.readAll(longestVersion).value_or("");
  pipe.readEnd.close();
  const bool isRead = tool->wait().isSuccess();
  const bool isOneLine = version.size() > 1 && version.find('\n') == version.size() - 1;
  if (!isRead || version.size() > longestVersion || !isOneLine) {
    return unreadable("dpkg-deb does not find a version in it");
  }
  version.pop_back();
  return version;
}

// The same text but for a Debian revision. A feed that counts revisions is refused: the running program does not know
// its own, and would take an older one for an update.
bool isDebianVersionOf(std::string_view own, std::string_view offered) {
  return own.substr(0, own.rfind('-')) == offered;
}

system::Failure unplacedPackage(const std::string& /*target*/, const std::string& reason) {
  return {"The update could not be stored: " + reason + ". See to that, and try again."};
}

}  // namespace

constinit const PackageKind debianPackage = {.name = "debian",
                                             .isOne = &isDebianPackage,
                                             .ownVersion = &debianVersion,
                                             .isVersionOf = &isDebianVersionOf,
                                             .unplaced = &unplacedPackage};

}  // namespace tarnwell::updater
