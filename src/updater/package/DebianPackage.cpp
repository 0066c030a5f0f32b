#include "updater/package/DebianPackage.h"

#include <fcntl.h>

#include <chrono>

#include "system/Pipe.h"
#include "system/Process.h"

namespace tarnwell::updater {
namespace {

constexpr std::chrono::seconds toolLimit(30);
constexpr std::size_t longestVersion = 200;  // Bytes.

system::Failure unreadable(const std::string& reason) {
  return {"The downloaded update was thrown away, because it cannot be seen which version it is: " + reason + "."};
}

}  // namespace

system::Result<std::string> debianVersion(int descriptor) {
  system::Pipe pipe = system::Pipe::create("look into a package");
  const system::Descriptor nothing(::open("/dev/null", O_WRONLY | O_CLOEXEC));
  // It finds the package at 3, reads nothing else, and goes with us or when its time is up.
  auto tool = system::Process::start({.words = {"dpkg-deb", "--field", "/proc/self/fd/3", "Version"},
                                      .output = pipe.writeEnd.number(),
                                      .errors = nothing.number(),
                                      .extra = descriptor,
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

bool isDebianVersionOf(std::string_view packageVersion, std::string_view version) {
  return packageVersion.substr(0, packageVersion.rfind('-')) == version;
}

}  // namespace tarnwell::updater
