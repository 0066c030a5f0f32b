#include "standin/Process.h"

#include <spawn.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <fstream>
#include <stdexcept>

namespace tarnwell::standin {
namespace {

std::vector<char*> pointers(const Words& words) {
  std::vector<char*> result;
  for (const std::string& word : words) {
    result.push_back(const_cast<char*>(word.c_str()));
  }
  result.push_back(nullptr);
  return result;
}

std::string contentOf(int file) {
  std::string content;
  std::array<char, 4096> buffer{};
  for (;;) {
    const ssize_t count = ::pread(file, buffer.data(), buffer.size(), static_cast<off_t>(content.size()));
    if (count <= 0) {
      return content;
    }
    content.append(buffer.data(), static_cast<std::size_t>(count));
  }
}

}  // namespace

Process::Process(const Words& command, const Words& environment)
    : output_(::memfd_create("output", MFD_CLOEXEC)), errors_(::memfd_create("errors", MFD_CLOEXEC)) {
  posix_spawn_file_actions_t actions;
  ::posix_spawn_file_actions_init(&actions);
  ::posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", 0, 0);
  ::posix_spawn_file_actions_adddup2(&actions, output_, STDOUT_FILENO);
  ::posix_spawn_file_actions_adddup2(&actions, errors_, STDERR_FILENO);
  const int error = ::posix_spawn(&id_, command.front().c_str(), &actions, nullptr, pointers(command).data(),
                                  pointers(environment).data());
  ::posix_spawn_file_actions_destroy(&actions);
  if (error != 0) {
    throw std::runtime_error("cannot start " + command.front());
  }
}

Process::~Process() {
  if (id_ > 0) {
    ::kill(id_, SIGKILL);
    wait();
  }
  ::close(output_);
  ::close(errors_);
}

void Process::send(int signal) const { ::kill(id_, signal); }

std::string Process::errors() const { return contentOf(errors_); }

Outcome Process::wait() { return *reap(0); }

std::optional<Outcome> Process::poll() { return reap(WNOHANG); }

std::optional<Outcome> Process::reap(int options) {
  int status = 0;
  pid_t ended = 0;
  do {
    ended = ::waitpid(id_, &status, options);
  } while (ended < 0 && errno == EINTR);
  if (ended == 0) {
    return std::nullopt;
  }
  id_ = -1;
  Outcome outcome;
  if (WIFEXITED(status)) {
    outcome.status = WEXITSTATUS(status);
  }
  if (WIFSIGNALED(status)) {
    outcome.signal = WTERMSIG(status);
  }
  outcome.output = contentOf(output_);
  outcome.errors = contentOf(errors_);
  return outcome;
}

Outcome run(const Words& command, const Words& environment) { return Process(command, environment).wait(); }

bool isRunning(pid_t id) {
  std::ifstream file("/proc/" + std::to_string(id) + "/stat");
  std::string stat;
  if (!std::getline(file, stat)) {
    return false;
  }
  const std::size_t name = stat.rfind(") ");
  return name != std::string::npos && stat[name + 2] != 'Z';
}

}  // namespace tarnwell::standin
