#include <fcntl.h>
#include <gtest/gtest.h>
#include <linux/capability.h>
#include <seccomp.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <functional>
#include <string>

#include "confinement/Confinement.h"
#include "confinement/Fences.h"

namespace tarnwell::confinement {
namespace {

using namespace std::chrono_literals;

/// How a process ends that does this: there is no way back out of a fence.
int endOf(const std::function<int()>& work) {
  const pid_t child = ::fork();
  if (child == 0) {
    ::_exit(work());
  }
  int status = 0;
  EXPECT_EQ(::waitpid(child, &status, 0), child);
  return status;
}

void blockEverySignal() {
  sigset_t all = {};
  ::sigfillset(&all);
  ::sigprocmask(SIG_BLOCK, &all, nullptr);
}

/// As a system does that does not know it.
bool refuseLimit(int resource) {
  void* filter = ::seccomp_init(SCMP_ACT_ALLOW);
  const scmp_arg_cmp isResource = {
      .arg = 1, .op = SCMP_CMP_EQ, .datum_a = static_cast<scmp_datum_t>(resource), .datum_b = 0};
  const bool isRefused = ::seccomp_rule_add(filter, SCMP_ACT_ERRNO(EPERM), SCMP_SYS(prlimit64), 1, isResource) == 0 &&
                         ::seccomp_load(filter) == 0;
  ::seccomp_release(filter);
  return isRefused;
}

void giveUpCapabilities() {
  __user_cap_header_struct header = {.version = _LINUX_CAPABILITY_VERSION_3, .pid = 0};
  const std::array<__user_cap_data_struct, _LINUX_CAPABILITY_U32S_3> none = {};
  EXPECT_EQ(::syscall(SYS_capset, &header, none.data()), 0);
}

bool isLimited(decltype(RLIMIT_CPU) resource, rlim_t most) {
  rlimit limit = {};
  return ::getrlimit(resource, &limit) == 0 && limit.rlim_cur == most && limit.rlim_max == most;
}

TEST(TimeLimit, endsWhatHangsAndBlocksSignals) {
  const int status = endOf([] {
    blockEverySignal();
    return limitTime(10ms) ? ::pause() : 0;
  });
  EXPECT_TRUE(WIFSIGNALED(status));
  EXPECT_EQ(WTERMSIG(status), SIGKILL);
}

TEST(TimeLimit, isPartOfAllThatIsGivenUp) {
  const int status = endOf([] {
    keepOnly({.memory = 1ULL << 32U, .seconds = 60, .time = 10ms});
    return ::pause();
  });
  EXPECT_TRUE(WIFSIGNALED(status));
  EXPECT_EQ(WTERMSIG(status), SIGKILL);
}

// What a superuser may anyway, any other user may only after giving up new privileges.
TEST(Limits, allThatIsToBeGivenUpIsGivenUp) {
  const int status = endOf([] {
    giveUpCapabilities();
    const auto missing = keepOnly({.memory = 1ULL << 32U, .fileSize = 1000, .seconds = 60, .time = 1min});
    EXPECT_TRUE(missing.empty()) << missing.front();
    EXPECT_EQ(::prctl(PR_GET_NO_NEW_PRIVS, 0, 0, 0, 0), 1);
    EXPECT_TRUE(TARNWELL_IS_SANITIZED || isLimited(RLIMIT_AS, 1ULL << 32U));
    EXPECT_TRUE(isLimited(RLIMIT_FSIZE, 1000));
    EXPECT_TRUE(isLimited(RLIMIT_NOFILE, 64));
    EXPECT_TRUE(isLimited(RLIMIT_CORE, 0));
    EXPECT_TRUE(isLimited(RLIMIT_CPU, 60));
    EXPECT_EQ(::open("/", O_RDONLY | O_CLOEXEC), -1);
    EXPECT_EQ(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0), -1);
    return testing::Test::HasFailure() ? 1 : 0;
  });
  EXPECT_EQ(status, 0);
}

TEST(Limits, oneThatIsRefusedIsSaidAndTheOthersAreRaised) {
  const int status = endOf([] {
    if (!refuseLimit(RLIMIT_FSIZE)) {
      return 1;
    }
    const auto missing = keepOnly({.memory = 1ULL << 32U, .seconds = 60, .time = 1min});
    const bool isSaid = std::any_of(missing.begin(), missing.end(), [](const std::string& fence) {
      return fence == "the update engine works without a limit of file size: Operation not permitted";
    });
    const bool areRaised = isLimited(RLIMIT_CPU, 60) && isLimited(RLIMIT_NOFILE, 64) && isLimited(RLIMIT_CORE, 0);
    return isSaid && areRaised ? 0 : 2;
  });
  EXPECT_EQ(WEXITSTATUS(status), 0);
  EXPECT_FALSE(WIFSIGNALED(status));
}

}  // namespace
}  // namespace tarnwell::confinement
