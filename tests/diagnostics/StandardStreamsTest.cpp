#include "diagnostics/StandardStreams.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>

#include "fixtures/Processes.h"
#include "fixtures/Sandbox.h"
#include "fixtures/Subprocess.h"

namespace tarnwell::diagnostics {
namespace {

using fixtures::exitStatusOf;

bool isNullDevice(int descriptor) {
  struct stat status = {};
  struct stat null = {};
  return ::fstat(descriptor, &status) == 0 && ::stat("/dev/null", &null) == 0 && status.st_rdev == null.st_rdev;
}

bool takesNothing(int descriptor) { return ::write(descriptor, "x", 1) < 0 && errno == EBADF; }

TEST(StandardStreamsTest, closedOnesBecomeTheNullDeviceWhichTakesNothing) {
  const int wrong = exitStatusOf([] {
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
      ::close(stream);
    }
    prepareStandardStreams();
    int count = 0;
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
      count += isNullDevice(stream) && takesNothing(stream) ? 0 : 1;
    }
    return count;
  });
  EXPECT_EQ(wrong, 0);
}

TEST(StandardStreamsTest, openOnesStayAsTheyAre) {
  const fixtures::Sandbox folder;
  const int status = exitStatusOf([&folder] {
    ::close(STDERR_FILENO);
    ::dup2(::open((folder / "output").c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600), STDOUT_FILENO);
    ::close(STDERR_FILENO);
    const int open = fixtures::openDescriptorCount();
    prepareStandardStreams();
    const bool isOneMore = fixtures::openDescriptorCount() == open + 1;
    return isOneMore && ::write(STDOUT_FILENO, "line", 4) == 4 && isNullDevice(STDERR_FILENO) ? 0 : 1;
  });
  EXPECT_EQ(status, 0);
  EXPECT_EQ(folder.read("output"), "line");
}

TEST(StandardStreamsTest, withoutTheNullDeviceTheProcessEnds) {
  const int status = exitStatusOf([] {
    const rlimit none = {.rlim_cur = 0, .rlim_max = 0};
    ::setrlimit(RLIMIT_NOFILE, &none);
    ::close(STDIN_FILENO);
    prepareStandardStreams();
    return 0;
  });
  EXPECT_EQ(status, EXIT_FAILURE);
}

TEST(StandardStreamsTest, aWriteThatCannotBeDoneFailsAndEndsNothing) {
  const fixtures::Sandbox folder;
  const int status = exitStatusOf([&folder] {
    prepareStandardStreams();
    std::array<int, 2> ends = {};
    if (::pipe(ends.data()) != 0) {
      return 1;
    }
    ::close(ends[0]);
    const bool isBroken = ::write(ends[1], "x", 1) < 0 && errno == EPIPE;
    const rlimit none = {.rlim_cur = 0, .rlim_max = 0};
    ::setrlimit(RLIMIT_FSIZE, &none);
    const int file = ::open((folder / "file").c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600);
    const bool isTooLarge = ::write(file, "x", 1) < 0 && errno == EFBIG;
    return isBroken && isTooLarge ? 0 : 2;
  });
  EXPECT_EQ(status, 0);
}

}  // namespace
}  // namespace tarnwell::diagnostics
