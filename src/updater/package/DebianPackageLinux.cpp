#include <fcntl.h>
#include <unistd.h>

#include <chrono>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "system/processes/Pipe.h"
#include "system/processes/Process.h"
#include "updater/package/DebianControlLinux.h"
#include "updater/package/PackageKind.h"

namespace tarnwell::updater {
namespace {

constexpr std::chrono::seconds toolLimit(30);
constexpr std::size_t longestControl = std::size_t{1} << 20U;  // Bytes.

system::Failure unreadable(const std::string& reason) {
  return {"The downloaded update was thrown away, because it cannot be seen which version it is: " + reason + "."};
}

bool isDebianPackage(std::string_view start) { return start.starts_with("!<arch>\ndebian-binary"); }

system::Result<system::Process> startTool(std::vector<std::string> words, int input, int output, int extra) {
  const system::Descriptor nothing(::open("/dev/null", O_WRONLY | O_CLOEXEC));
  return system::Process::start({.words = std::move(words),
                                 .input = input,
                                 .output = output,
                                 .errors = nothing.number(),
                                 .extra = extra,
                                 .endsWithStarter = true,
                                 .limit = toolLimit});
}

// Nothing where the tools do not end well; a failure where there is none.
system::Result<std::optional<std::string>> controlOf(int package) {
  system::Pipe archive = system::Pipe::create("look into a package");
  system::Pipe control = system::Pipe::create("look into a package");
  // It finds the package at 3, and reads nothing else.
  auto unpacking = startTool({"dpkg-deb", "--ctrl-tarfile", "/proc/self/fd/3"}, -1, archive.writeEnd.number(), package);
  if (!unpacking) {
    return unpacking.error();
  }
  auto reading = startTool({"tar", "-xOf", "-", "./control"}, archive.readEnd.number(), control.writeEnd.number(), -1);
  archive = {};
  control.writeEnd.close();
  auto text = control.readEnd.readAll(longestControl);
  control.readEnd.close();
  const bool isUnpacked = unpacking->wait().isSuccess();
  const bool isRead = reading && reading->wait().isSuccess();
  const bool isWhole = text && text->size() <= longestControl;
  return isUnpacked && isRead && isWhole ? text : std::nullopt;
}

// As the system's own tools read it. They write no file.
system::Result<std::string> debianVersion(int descriptor) {
  // The tools' own standard streams would take its place.
  const system::Descriptor package(::fcntl(descriptor, F_DUPFD_CLOEXEC, STDERR_FILENO + 1));
  const auto control = controlOf(package.number());
  if (!control) {
    return unreadable("it is a Debian package, and this system has no dpkg-deb to look into it");
  }
  const auto version = *control ? versionInControl(**control) : std::nullopt;
  return version ? system::Result<std::string>(*version) : unreadable("dpkg-deb does not find a version in it");
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
                                             .place = &placeFile,
                                             .unplaced = &unplacedPackage};

}  // namespace tarnwell::updater
