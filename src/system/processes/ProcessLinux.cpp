#include <fcntl.h>
#include <linux/close_range.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <climits>
#include <csignal>
#include <cstdlib>
#include <system_error>

#include "system/base/WordPointers.h"
#include "system/processes/Environment.h"
#include "system/processes/Process.h"
#include "system/processes/ProcessGuard.h"
#include "system/processes/SignalPause.h"

namespace tarnwell::system {
namespace {

constexpr int extraNumber = STDERR_FILENO + 1;
constexpr int notStarted = 127;

/// All that the new process needs, made beforehand: it has this process's memory until it is another program.
struct Prepared {
  const Launch& launch;
  std::vector<char*> arguments;
  std::vector<char*> environment;
  sigset_t blocked = {};
  pid_t starter = ::getpid();

  explicit Prepared(const Launch& wanted) : launch(wanted), arguments(wordPointers(wanted.words)) {
    if (wanted.environment) {
      environment = wordPointers(*wanted.environment);
    }
    ::sigemptyset(&blocked);
    for (const int signal : wanted.blockedSignals) {
      ::sigaddset(&blocked, signal);
    }
  }
};

// Not sigaction(): it refuses the signals that the C library keeps for itself, which this process may have inherited as
// ignored.
void takeDefaultSignals() {
  const std::array<unsigned long, 4> asAtFirst = {};
  for (int number = 1; number < NSIG; ++number) {
    ::syscall(SYS_rt_sigaction, number, asAtFirst.data(), nullptr, sizeof(unsigned long));
  }
}

// A number that is the right one already would stay closed on exec.
bool place(int from, int to) { return from == to ? ::fcntl(from, F_SETFD, 0) == 0 : ::dup2(from, to) == to; }

bool placeDescriptors(const Launch& launch) {
  const int input = launch.input == -1 ? ::open("/dev/null", O_RDONLY | O_CLOEXEC) : launch.input;
  const bool arePlaced = place(input, STDIN_FILENO) && (launch.output == -1 || place(launch.output, STDOUT_FILENO)) &&
                         (launch.errors == -1 || place(launch.errors, STDERR_FILENO)) &&
                         (launch.extra == -1 || place(launch.extra, extraNumber));
  // What this process inherited itself, or a library left open on exec, is nothing for the new one either.
  const int first = launch.extra == -1 ? extraNumber : extraNumber + 1;
  return arePlaced && ::close_range(static_cast<unsigned>(first), UINT_MAX, 0) == 0;
}

bool isPrepared(const Prepared& prepared) {
  const Launch& launch = prepared.launch;
  takeDefaultSignals();
  if (!placeDescriptors(launch)) {
    return false;
  }
  if (launch.hasOwnSession) {
    ::setsid();
  }
  if (launch.endsWithStarter) {
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    // The starter may have ended before that was said.
    if (::getppid() != prepared.starter) {
      ::_exit(notStarted);
    }
    // The kernel ends this process alone, and not what it will have started.
    if (launch.hasOwnSession) {
      guard({.child = ::getpid(), .starter = prepared.starter, .endsWithStarter = -::getpid()});
    }
  }
  ::alarm(static_cast<unsigned>(launch.limit.count()));
  return ::sigprocmask(SIG_SETMASK, &prepared.blocked, nullptr) == 0;
}

[[noreturn]] void becomeProgram(const Prepared& prepared, volatile int& error) {
  if (isPrepared(prepared)) {
    char* const* environment = prepared.launch.environment ? prepared.environment.data() : processEnvironment();
    ::execvpe(prepared.arguments.front(), prepared.arguments.data(), environment);
  }
  error = errno;
  ::_exit(notStarted);
}

// Copying what is known of this process's memory would take longer than the rest. The child calls the system alone.
pid_t startChild(const Prepared& prepared, volatile int& error) {
  const SignalPause pause;
  const pid_t child = ::vfork();  // NOLINT(clang-analyzer-security.insecureAPI.vfork): as above
  if (child == 0) {
    becomeProgram(prepared, error);  // NOLINT(clang-analyzer-unix.Vfork): as above
  }
  return child;
}

}  // namespace

Result<Process> Process::start(const Launch& launch) {
  const Prepared prepared(launch);
  volatile int error = 0;
  const pid_t child = startChild(prepared, error);
  if (child == -1) {
    return systemFailure("cannot start " + launch.words.front());
  }
  Process process(child);
  if (error != 0) {
    process.wait();
    return Failure{.message = "cannot start " + launch.words.front() + ": " + std::generic_category().message(error),
                   .error = error};
  }
  return process;
}

// The C library's own declaration is missing in older versions and unusable from C++ in others.
Descriptor Process::processDescriptor(pid_t number) {
  return aboveStandardStreams(Descriptor(static_cast<int>(::syscall(SYS_pidfd_open, number, 0))));
}

}  // namespace tarnwell::system
