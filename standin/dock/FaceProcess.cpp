#include "standin/dock/FaceProcess.h"

#include <poll.h>
#include <spawn.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>

#include "diagnostics/Console.h"
#include "standin/dock/OwnFolder.h"

namespace tarnwell::standin {
namespace {

bool mayHaveDisplay() {
  return std::ranges::any_of(std::array{"DISPLAY", "WAYLAND_DISPLAY"}, [](const char* name) {
    const char* value = std::getenv(name);  // NOLINT(concurrency-mt-unsafe): one thread
    return value != nullptr && *value != '\0';
  });
}

// The new process hears the records on its standard input, and no signal is ignored or blocked in it.
int spawn(const std::string& path, const system::Descriptor& heard, pid_t& process) {
  std::string name = "dock-face";
  std::array<char*, 2> arguments = {name.data(), nullptr};
  posix_spawn_file_actions_t files;
  ::posix_spawn_file_actions_init(&files);
  ::posix_spawn_file_actions_adddup2(&files, heard.number(), STDIN_FILENO);
  posix_spawnattr_t attributes;
  ::posix_spawnattr_init(&attributes);
  sigset_t signals;
  ::sigfillset(&signals);
  ::posix_spawnattr_setsigdefault(&attributes, &signals);
  ::sigemptyset(&signals);
  ::posix_spawnattr_setsigmask(&attributes, &signals);
  ::posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETSIGMASK);
  const int error = ::posix_spawn(&process, path.c_str(), &files, &attributes, arguments.data(), environ);
  ::posix_spawnattr_destroy(&attributes);
  ::posix_spawn_file_actions_destroy(&files);
  return error;
}

}  // namespace

std::unique_ptr<FaceProcess> FaceProcess::start() {
  std::array<int, 2> ends{};
  if (!mayHaveDisplay() || ::socketpair(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0, ends.data()) != 0) {
    return nullptr;
  }
  system::Descriptor told(ends[0]);
  const system::Descriptor heard(ends[1]);
  const std::string path = ownFolder() + "/dock-face";
  pid_t process = -1;
  if (const int error = spawn(path, heard, process); error != 0) {
    diagnostics::printErrorLine("Dock: cannot start " + path + ": " +
                                std::strerror(error));  // NOLINT(concurrency-mt-unsafe)
    return nullptr;
  }
  return std::unique_ptr<FaceProcess>(new FaceProcess(process, std::move(told)));
}

FaceProcess::~FaceProcess() {
  if (isRunning()) {
    ::kill(process_, SIGKILL);
    ::waitpid(process_, nullptr, 0);
  }
}

bool FaceProcess::isRunning() {
  if (process_ > 0 && ::waitpid(process_, nullptr, WNOHANG) != 0) {
    process_ = -1;
  }
  return process_ > 0;
}

void FaceProcess::tellEnd() const { ::send(socket(), noDock.data(), noDock.size(), MSG_NOSIGNAL | MSG_DONTWAIT); }

void showOn(int socket, const std::string& behavior) {
  ::send(socket, behavior.data(), behavior.size(), MSG_NOSIGNAL);
  pollfd ending{.fd = socket, .events = 0, .revents = 0};
  while (::poll(&ending, 1, -1) < 0 && errno == EINTR) {
  }
}

}  // namespace tarnwell::standin
