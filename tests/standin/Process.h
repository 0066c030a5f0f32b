#pragma once

#include <sys/types.h>

#include <optional>
#include <string>
#include <vector>

namespace tarnwell::standin {

using Words = std::vector<std::string>;

/// How a process ended, and what it printed.
struct Outcome {
  int status = -1;  // of its exit; -1 when a signal ended it
  int signal = 0;   // that ended it
  std::string output;
  std::string errors;
};

/// A child process of the test, killed and reaped at the end if it is still there.
class Process {
 public:
  /// `command` starts with a path; `environment` is all that the child gets.
  Process(const Words& command, const Words& environment);
  Process(const Process&) = delete;
  Process& operator=(const Process&) = delete;
  ~Process();

  pid_t id() const { return id_; }
  void send(int signal) const;
  std::string errors() const;

  /// Waits for the end.
  Outcome wait();

  /// What has happened, if it has ended.
  std::optional<Outcome> poll();

 private:
  std::optional<Outcome> reap(int options);

  pid_t id_ = -1;  // -1 once it is reaped
  int output_ = -1;
  int errors_ = -1;
};

Outcome run(const Words& command, const Words& environment);

/// Whether a process is there and is no zombie.
bool isRunning(pid_t id);

}  // namespace tarnwell::standin
