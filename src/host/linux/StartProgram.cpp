#include "host/linux/StartProgram.h"

#include <fcntl.h>
#include <spawn.h>
#include <unistd.h>

#include <csignal>
#include <cstring>
#include <system_error>

#include "host/linux/UserEnvironment.h"

namespace tarnwell::host_linux {
namespace {

/// Signals and descriptors of the new process.
class CleanSlate {
 public:
  CleanSlate() {
    sigset_t none;
    sigset_t all;
    ::sigemptyset(&none);
    // Not sigfillset: it leaves out the signals that the C library keeps for itself.
    std::memset(&all, 0xFF, sizeof all);
    ::posix_spawnattr_init(&attributes_);
    ::posix_spawnattr_setsigmask(&attributes_, &none);
    ::posix_spawnattr_setsigdefault(&attributes_, &all);
    ::posix_spawnattr_setflags(&attributes_, POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETSID);
    ::posix_spawn_file_actions_init(&actions_);
    ::posix_spawn_file_actions_addopen(&actions_, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    ::posix_spawn_file_actions_addclosefrom_np(&actions_, STDERR_FILENO + 1);
  }
  CleanSlate(const CleanSlate&) = delete;
  CleanSlate& operator=(const CleanSlate&) = delete;
  ~CleanSlate() {
    ::posix_spawn_file_actions_destroy(&actions_);
    ::posix_spawnattr_destroy(&attributes_);
  }

  int start(pid_t& process, char* const* arguments, char* const* environment) const {
    return ::posix_spawnp(&process, arguments[0], &actions_, &attributes_, arguments, environment);
  }

 private:
  posix_spawnattr_t attributes_ = {};
  posix_spawn_file_actions_t actions_ = {};
};

// As the system takes them; they stay the caller's.
std::vector<char*> pointers(const std::vector<std::string>& texts) {
  std::vector<char*> pointers;
  pointers.reserve(texts.size() + 1);
  for (const std::string& text : texts) {
    // The system's signature lacks a const; it does not touch the texts.
    pointers.push_back(const_cast<char*>(text.c_str()));
  }
  pointers.push_back(nullptr);
  return pointers;
}

}  // namespace

system::Result<pid_t> startProgram(const std::vector<std::string>& words) {
  const std::vector<std::string> environment = userEnvironment();
  pid_t process = 0;
  const int error = CleanSlate().start(process, pointers(words).data(), pointers(environment).data());
  if (error != 0) {
    return system::Failure{"cannot start " + words.front() + ": " + std::generic_category().message(error)};
  }
  return process;
}

}  // namespace tarnwell::host_linux
