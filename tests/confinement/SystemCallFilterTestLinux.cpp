#include <fcntl.h>
#include <gtest/gtest.h>
#include <linux/netlink.h>
#include <linux/sockios.h>
#include <sched.h>
#include <seccomp.h>
#include <sys/ioctl.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <thread>
#include <vector>

#include "confinement/Fences.h"
#include "fixtures/Subprocess.h"

namespace tarnwell::confinement {
namespace {

/// One that leads to nothing: what it names is not there, or is not valid together.
struct Call {
  int number;
  std::array<long, 4> arguments;
};

constexpr int changeModeByNumber = 452;  // fchmodat2: the library has no name for it.
constexpr long nowhere = -1;
constexpr long noType = -1;

/// The error; 0 where there is none.
int outcomeOf(const Call& call) {
  const auto& [first, second, third, fourth] = call.arguments;
  return ::syscall(call.number, first, second, third, fourth, 0, 0) == -1 ? errno : 0;
}

/// By the filter. A machine that does not have the call refuses it as well.
bool isRefused(const Call& call) { return outcomeOf(call) == (call.number < 0 ? ENOSYS : EPERM); }

std::string described(const Call& call) {
  std::string text = std::to_string(call.number);
  for (const long argument : call.arguments) {
    text += " " + std::to_string(argument);
  }
  return text;
}

/// A copy of this process behind the filter, in which the expectations of `work` are to hold.
void behindFilter(const Rights& rights, const std::function<void()>& work) {
  const int status = fixtures::exitStatusOf([&] {
    EXPECT_TRUE(refuseNewPrivileges());
    EXPECT_TRUE(filterSystemCalls(rights));
    work();
    return testing::Test::HasFailure() ? 1 : 0;
  });
  EXPECT_EQ(status, 0);
}

void expectRefused(const std::vector<Call>& calls) {
  for (const Call& call : calls) {
    EXPECT_TRUE(isRefused(call)) << described(call) << ": " << outcomeOf(call);
  }
}

void expectAllowed(const std::vector<Call>& calls) {
  for (const Call& call : calls) {
    EXPECT_NE(outcomeOf(call), EPERM) << described(call);
  }
}

/// What no job needs.
std::vector<Call> alwaysRefused() {
  const long parent = ::getppid();
  std::vector<Call> calls = {
      {SCMP_SYS(kill), {::getpid(), 0}},
      {SCMP_SYS(setsid), {}},
      {SCMP_SYS(memfd_create), {}},
      {changeModeByNumber, {nowhere}},
      {SCMP_SYS(tgkill), {parent, parent, 0}},
      {SCMP_SYS(tgkill), {parent, ::getpid(), 0}},
      {SCMP_SYS(prlimit64), {::getpid(), nowhere}},
      {SCMP_SYS(ioctl), {nowhere, TIOCSTI}},
      {SCMP_SYS(open), {0, O_ACCMODE}},
      {SCMP_SYS(open), {0, O_ACCMODE | O_TRUNC | O_CLOEXEC}},
      {SCMP_SYS(open), {0, O_RDONLY | O_TRUNC}},
      {SCMP_SYS(openat), {nowhere, 0, O_ACCMODE}},
      {SCMP_SYS(openat), {nowhere, 0, O_ACCMODE | O_TRUNC | O_CLOEXEC}},
      {SCMP_SYS(openat), {nowhere, 0, O_RDONLY | O_TRUNC}},
  };
  constexpr long higherBits = 1L << 32U;
  for (const long control : {F_SETOWN, F_SETSIG, F_SETOWN_EX}) {
    calls.push_back({SCMP_SYS(fcntl), {nowhere, control}});
    calls.push_back({SCMP_SYS(fcntl), {nowhere, control | higherBits}});
  }
  for (const long request : {FIOSETOWN, SIOCSPGRP}) {
    calls.push_back({SCMP_SYS(ioctl), {nowhere, request}});
  }
  for (const long flag :
       {CLONE_NEWUSER, CLONE_NEWNS, CLONE_NEWPID, CLONE_NEWNET, CLONE_NEWIPC, CLONE_NEWUTS, CLONE_NEWCGROUP}) {
    calls.push_back({SCMP_SYS(clone), {flag | CLONE_THREAD}});
  }
  return calls;
}

/// What the work is done with.
std::vector<Call> alwaysAllowed() {
  return {{SCMP_SYS(tgkill), {::getpid(), ::getpid(), 0}},
          {SCMP_SYS(prlimit64), {0, nowhere}},
          {SCMP_SYS(fcntl), {STDIN_FILENO, F_GETFL}},
          {SCMP_SYS(ioctl), {STDIN_FILENO, FIONREAD}},
          {SCMP_SYS(openat), {nowhere, 0, O_RDONLY | O_CLOEXEC}},
          {SCMP_SYS(openat), {nowhere, 0, O_WRONLY | O_TRUNC}},
          {SCMP_SYS(openat), {nowhere, 0, O_RDWR | O_TRUNC | O_CREAT}},
          {SCMP_SYS(clone), {CLONE_THREAD}}};
}

/// Of every family but those of the Internet; a number that is above all families is none of them.
std::vector<Call> otherSockets() {
  std::vector<Call> calls = {{SCMP_SYS(socket), {AF_NETLINK, noType, NETLINK_KOBJECT_UEVENT}},
                             {SCMP_SYS(socket), {-1, noType, 0}}};
  for (long family = 0; family <= AF_MAX + 1; ++family) {
    if (family != AF_INET && family != AF_INET6 && family != AF_NETLINK) {
      calls.push_back({SCMP_SYS(socket), {family, noType, 0}});
    }
  }
  for (long type = 0; type < 0x10; ++type) {
    if (type != SOCK_STREAM) {
      calls.push_back({SCMP_SYS(socketpair), {AF_UNIX, type | SOCK_CLOEXEC, 0, 0}});
    }
  }
  return calls;
}

std::vector<Call> internetSockets() {
  return {{SCMP_SYS(socket), {AF_INET, noType, 0}},
          {SCMP_SYS(socket), {AF_INET6, noType, 0}},
          {SCMP_SYS(socket), {AF_NETLINK, noType, NETLINK_ROUTE}},
          {SCMP_SYS(socketpair), {AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, 0}},
          {SCMP_SYS(connect), {nowhere}},
          {SCMP_SYS(bind), {nowhere}}};
}

std::vector<Call> servingSockets() {
  return {{SCMP_SYS(listen), {nowhere}}, {SCMP_SYS(accept), {nowhere}}, {SCMP_SYS(accept4), {nowhere}}};
}

/// Without the one flag that makes a thread of a process.
std::vector<Call> starting() {
  return {{SCMP_SYS(execve), {}}, {SCMP_SYS(clone), {CLONE_SIGHAND}}, {SCMP_SYS(clone), {CLONE_VM | CLONE_SETTLS}}};
}

TEST(SystemCallFilter, withoutItNoSocketIsRefused) {
  for (const auto& calls : {otherSockets(), internetSockets(), servingSockets()}) {
    expectAllowed(calls);
  }
}

TEST(SystemCallFilter, refusesWhatNoJobNeeds) {
  for (const bool usesNetwork : {false, true}) {
    behindFilter({.usesNetwork = usesNetwork, .programs = {}}, [] {
      expectRefused(alwaysRefused());
      expectAllowed(alwaysAllowed());
    });
  }
  behindFilter({.programs = {"/usr/bin/true"}}, [] { expectRefused(alwaysRefused()); });
}

TEST(SystemCallFilter, whatItCannotSeeIntoIsSaidToBeMissing) {
  behindFilter({}, [] {
    EXPECT_EQ(outcomeOf({SCMP_SYS(clone3), {}}), ENOSYS);
    EXPECT_EQ(outcomeOf({SCMP_SYS(openat2), {}}), ENOSYS);
  });
}

TEST(SystemCallFilter, aKernelThatTakesNoneIsNamed) {
  const int status = fixtures::exitStatusOf([] {
    void* filter = ::seccomp_init(SCMP_ACT_ALLOW);
    const bool isRefused = ::seccomp_rule_add(filter, SCMP_ACT_ERRNO(EOPNOTSUPP), SCMP_SYS(seccomp), 0) == 0 &&
                           ::seccomp_load(filter) == 0;
    ::seccomp_release(filter);
    errno = 0;
    return isRefused && !filterSystemCalls({}) && errno == EOPNOTSUPP ? 0 : 1;
  });
  EXPECT_EQ(status, 0);
}

TEST(SystemCallFilter, threadsStayPossibleAndMayEndTheirProcess) {
  behindFilter({}, [] {
    int outcome = -1;
    std::thread([&outcome] { outcome = outcomeOf({SCMP_SYS(tgkill), {::getpid(), ::gettid(), 0}}); }).join();
    EXPECT_EQ(outcome, 0);
  });
}

TEST(SystemCallFilter, processesAreStartedOnlyWhereProgramsAreNamed) {
  behindFilter({}, [] { expectRefused(starting()); });
  behindFilter({.programs = {"/usr/bin/true"}}, [] {
    expectAllowed({{SCMP_SYS(execve), {}}});
    EXPECT_EQ(fixtures::exitStatusOf([] { return 7; }), 7);
  });
}

TEST(SystemCallFilter, aNetworkIsNoWayToThisMachinesOwnPrograms) {
  behindFilter({.usesNetwork = true}, [] {
    expectAllowed(internetSockets());
    expectRefused(otherSockets());
    expectRefused(servingSockets());
  });
}

TEST(SystemCallFilter, withoutTheNetworkThereAreNoSocketsAtAll) {
  behindFilter({}, [] {
    for (const auto& calls : {internetSockets(), otherSockets(), servingSockets()}) {
      expectRefused(calls);
    }
  });
}

}  // namespace
}  // namespace tarnwell::confinement
