#include "updater/engine/Fences.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdint>

#include "updater/package/PackageClaim.h"

namespace tarnwell::updater {
namespace {

using namespace std::chrono_literals;

constexpr std::uint64_t mebibyte = 1024UL * 1024;

struct FencedJob {
  std::vector<std::string> (*fence)(std::chrono::seconds limit) = nullptr;
  std::uint64_t memory = 0;
  std::uint64_t fileSize = 0;
  unsigned seconds = 0;
};

bool isLimited(decltype(RLIMIT_CPU) resource, std::uint64_t most) {
  rlimit limit = {};
  return ::getrlimit(resource, &limit) == 0 && limit.rlim_cur == most && limit.rlim_max == most;
}

bool keepsWithin(const FencedJob& job) {
  const pid_t child = ::fork();
  if (child == 0) {
    job.fence(1min);
    // None is set where a sanitizer needs more than there is.
    const bool isMemory = TARNWELL_IS_SANITIZED || isLimited(RLIMIT_AS, job.memory);
    const bool isFileSize = isLimited(RLIMIT_FSIZE, job.fileSize);
    ::_exit(isMemory && isFileSize && isLimited(RLIMIT_CPU, job.seconds) ? 0 : 1);
  }
  int status = -1;
  return ::waitpid(child, &status, 0) == child && status == 0;
}

TEST(FencesTest, eachJobHasMemoryFilesAndTimeForWhatIsItsOwnAndNotMore) {
  const std::uint64_t package = PackageClaim::maximumLength;
  EXPECT_TRUE(keepsWithin({fenceFetching, 1024 * mebibyte, package, 15 * 60}));
  EXPECT_TRUE(keepsWithin({fenceLooking, 2048 * mebibyte, 0, 2 * 60}));
  EXPECT_TRUE(keepsWithin({fenceReading, 512 * mebibyte, 0, 10}));
  EXPECT_TRUE(keepsWithin({fencePlacing, 1024 * mebibyte, package, 2 * 60}));
}

}  // namespace
}  // namespace tarnwell::updater
