#include <fcntl.h>
#include <spawn.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <system_error>

#include "system/base/Fault.h"
#include "system/base/WordPointers.h"
#include "system/events/KernelQueueMac.h"
#include "system/processes/Environment.h"
#include "system/processes/Process.h"
#include "system/processes/ProcessGuard.h"
#include "system/processes/SignalPause.h"

namespace tarnwell::system {
namespace {

constexpr int extraNumber = STDERR_FILENO + 1;

void require(int error) {
  if (error != 0) {
    fault("prepare a process", error);
  }
}

/// The descriptors that a new process finds; there are no others.
class Placement {
 public:
  explicit Placement(const Launch& launch) {
    require(::posix_spawn_file_actions_init(&actions_));
    if (launch.input < 0) {
      require(::posix_spawn_file_actions_addopen(&actions_, STDIN_FILENO, "/dev/null", O_RDONLY, 0));
    } else {
      place(launch.input, STDIN_FILENO);
    }
    place(launch.output < 0 ? STDOUT_FILENO : launch.output, STDOUT_FILENO);
    place(launch.errors < 0 ? STDERR_FILENO : launch.errors, STDERR_FILENO);
    if (launch.extra >= 0) {
      place(launch.extra, extraNumber);
    }
  }
  Placement(const Placement&) = delete;
  Placement& operator=(const Placement&) = delete;
  ~Placement() { ::posix_spawn_file_actions_destroy(&actions_); }

  const posix_spawn_file_actions_t* actions() const { return &actions_; }

 private:
  // Nothing is handed on by itself, not even what has the right number already.
  void place(int from, int to) {
    require(from == to ? ::posix_spawn_file_actions_addinherit_np(&actions_, from)
                       : ::posix_spawn_file_actions_adddup2(&actions_, from, to));
  }

  posix_spawn_file_actions_t actions_ = {};
};

/// A clean slate: default signals, those blocked alone that are asked for, and no descriptor that is not placed.
class Attributes {
 public:
  explicit Attributes(const Launch& launch) {
    require(::posix_spawnattr_init(&attributes_));
    sigset_t all;
    sigset_t blocked;
    sigfillset(&all);
    sigemptyset(&blocked);
    for (const int signal : launch.blockedSignals) {
      sigaddset(&blocked, signal);
    }
    require(::posix_spawnattr_setsigdefault(&attributes_, &all));
    require(::posix_spawnattr_setsigmask(&attributes_, &blocked));
    const int flags = POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_CLOEXEC_DEFAULT |
                      (launch.hasOwnSession ? POSIX_SPAWN_SETSID : 0);
    require(::posix_spawnattr_setflags(&attributes_, static_cast<short>(flags)));
  }
  Attributes(const Attributes&) = delete;
  Attributes& operator=(const Attributes&) = delete;
  ~Attributes() { ::posix_spawnattr_destroy(&attributes_); }

  const posix_spawnattr_t* attributes() const { return &attributes_; }

 private:
  posix_spawnattr_t attributes_ = {};
};

}  // namespace

Result<Process> Process::start(const Launch& launch) {
  const Placement placement(launch);
  const Attributes attributes(launch);
  const std::vector<char*> arguments = wordPointers(launch.words);
  const std::vector<char*> environment = wordPointers(launch.environment.value_or(std::vector<std::string>()));
  pid_t child = -1;
  const int error = ::posix_spawnp(&child, arguments.front(), placement.actions(), attributes.attributes(),
                                   arguments.data(), launch.environment ? environment.data() : processEnvironment());
  if (error != 0) {
    return Failure{.message = "cannot start " + launch.words.front() + ": " + std::generic_category().message(error),
                   .error = error};
  }
  if (launch.endsWithStarter || launch.limit.count() != 0) {
    const pid_t itsOwn = launch.hasOwnSession ? -child : child;
    const SignalPause pause;
    guard({.child = child,
           .starter = ::getpid(),
           .limit = launch.limit,
           .endsWithStarter = launch.endsWithStarter ? itsOwn : 0});
  }
  return Process(child);
}

// A queue that nothing is taken from stays readable. One that has ended cannot be watched any more, though it has to be
// waited for; what has happened already is put into the queue for it.
Descriptor Process::processDescriptor(pid_t number) {
  Descriptor queue = makeKernelQueue();
  if (changeKernelQueue(queue, kernelEvent(number, EVFILT_PROC, EV_ADD, NOTE_EXIT)) ||
      (errno == ESRCH && ::kill(number, 0) == 0 &&
       changeKernelQueue(queue, kernelEvent(0, EVFILT_USER, EV_ADD, NOTE_TRIGGER)))) {
    return queue;
  }
  return {};
}

}  // namespace tarnwell::system
