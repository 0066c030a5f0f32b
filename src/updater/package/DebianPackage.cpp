#include "updater/package/DebianPackage.h"

#include <fcntl.h>
#include <linux/close_range.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <climits>
#include <csignal>

#include "system/Descriptor.h"

namespace tarnwell::updater {
namespace {

constexpr unsigned int toolSeconds = 30;
constexpr int missingTool = 127;
constexpr int packageNumber = STDERR_FILENO + 1;
constexpr std::size_t longestVersion = 200;  // Bytes.

system::Failure unreadable(const std::string& reason) {
  return {"The downloaded update was thrown away, because it cannot be seen which version it is: " + reason + "."};
}

// The tool finds the package under a number of its own, reads nothing else, and goes with us or when its time is up.
[[noreturn]] void becomeTool(int package, int output, pid_t original) {
  const int nothing = ::open("/dev/null", O_RDWR | O_CLOEXEC);
  ::dup2(nothing, STDIN_FILENO);
  ::dup2(output, STDOUT_FILENO);
  ::dup2(nothing, STDERR_FILENO);
  // A number that is the right one already would stay closed on exec.
  if (package == packageNumber ? ::fcntl(package, F_SETFD, 0) < 0 : ::dup2(package, packageNumber) < 0) {
    ::_exit(EXIT_FAILURE);
  }
  ::close_range(packageNumber + 1, UINT_MAX, 0);
  ::prctl(PR_SET_PDEATHSIG, SIGKILL);
  if (::getppid() == original) {
    ::alarm(toolSeconds);
    ::execlp("dpkg-deb", "dpkg-deb", "--field", "/proc/self/fd/3", "Version", nullptr);
  }
  ::_exit(missingTool);
}

/// The exit status; -1 when it did not come to that.
int endOf(pid_t tool) {
  int status = 0;
  while (::waitpid(tool, &status, 0) < 0) {
    if (errno != EINTR) {
      return -1;
    }
  }
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

}  // namespace

system::Result<std::string> debianVersion(int descriptor) {
  std::array<int, 2> ends = {};
  if (::pipe2(ends.data(), O_CLOEXEC) != 0) {
    return unreadable("the system has no room to look into it");
  }
  system::Descriptor reading = system::aboveStandardStreams(system::Descriptor(ends[0]));
  system::Descriptor writing = system::aboveStandardStreams(system::Descriptor(ends[1]));
  const pid_t original = ::getpid();
  const pid_t tool = ::fork();
  if (tool == 0) {
    becomeTool(descriptor, writing.number(), original);
  }
  writing.close();
  std::string version = reading.readAll(longestVersion).value_or("");
  reading.close();
  const int status = tool > 0 ? endOf(tool) : -1;
  if (status == missingTool) {
    return unreadable("it is a Debian package, and this system has no dpkg-deb to look into it");
  }
  const bool isOneLine = version.size() > 1 && version.find('\n') == version.size() - 1;
  if (status != 0 || version.size() > longestVersion || !isOneLine) {
    return unreadable("dpkg-deb does not find a version in it");
  }
  version.pop_back();
  return version;
}

bool isDebianVersionOf(std::string_view packageVersion, std::string_view version) {
  return packageVersion.substr(0, packageVersion.rfind('-')) == version;
}

}  // namespace tarnwell::updater
