#pragma once

#include <sys/types.h>

#include <chrono>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "system/base/Descriptor.h"
#include "system/base/Result.h"

namespace tarnwell::system {

/// What a new process is and finds. It has a clean slate: default signals, none of them blocked, and no descriptor but
/// those that are named here.
struct Launch {
  /// The program, by a path or by a name that is looked for on the PATH, and its arguments.
  std::vector<std::string> words = {};
  /// "NAME=value" each; this process's own where there is none.
  std::optional<std::vector<std::string>> environment = {};
  /// Descriptors of this process that it finds at 0, 1, 2 and 3. Where there is none (-1) it reads from the null device
  /// and prints where this process prints. All are clear of the standard streams.
  int input = -1;
  int output = -1;
  int errors = -1;
  int extra = -1;
  std::vector<int> blockedSignals = {};
  /// A key that interrupts this process in its terminal does not reach it.
  bool hasOwnSession = false;
  /// Killed when the thread that started it ends, with all of its session where that is its own.
  bool endsWithStarter = false;
  /// It is ended after that time; zero is for ever.
  std::chrono::seconds limit = std::chrono::seconds(0);
};

/// How a process ended.
struct ProcessEnd {
  enum class How {
    exited,   // `number` is the status
    killed,   // `number` is the signal
    unknown,  // it left nothing to tell, as where the end of children is ignored
  };

  How how = How::unknown;
  int number = 0;

  bool isSuccess() const { return how == How::exited && number == 0; }
};

/// A child of this process, whose user sees to its end: nothing is done when this goes.
class Process {
 public:
  /// A failure is "cannot start PROGRAM: reason", also where the program is not there.
  static Result<Process> start(const Launch& launch);

  /// A copy of this process, say.
  explicit Process(pid_t number) : number_(number) {}
  Process(Process&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
  Process& operator=(Process&& other) noexcept;

  /// -1 once its end was seen.
  pid_t number() const { return number_; }
  /// Readable once it has ended, from when on `wait` is no wait to speak of; closed on exec. None, with errno set, when
  /// there is none to be had.
  Descriptor endDescriptor() const { return processDescriptor(number_); }
  static Descriptor processDescriptor(pid_t number);

  /// Takes it off the system's list when it has ended; nothing while it runs.
  std::optional<ProcessEnd> end() { return reap(false); }
  /// Blocks until it has ended.
  ProcessEnd wait() { return *reap(true); }
  /// Nothing where its end was seen.
  void send(int signal) const;
  /// To it and the processes of its session, where it has one of its own.
  void sendToSession(int signal) const;

 private:
  std::optional<ProcessEnd> reap(bool blocks);

  pid_t number_;
};

}  // namespace tarnwell::system
