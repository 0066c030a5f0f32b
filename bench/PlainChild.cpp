#include "PlainChild.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <cstdlib>

namespace tarnwell::bench {
namespace {

pid_t spawn(const std::string& commandLine, const posix_spawn_file_actions_t* actions) {
  std::string shell = "/bin/zsh";
  std::string option = "-c";
  std::string command = commandLine;
  const std::array<char*, 4> arguments = {shell.data(), option.data(), command.data(), nullptr};
  pid_t child = 0;
  if (::posix_spawn(&child, "/bin/zsh", actions, nullptr, arguments.data(), environ) != 0) {
    std::abort();
  }
  return child;
}

}  // namespace

pid_t spawnPlainly(const std::string& commandLine) { return spawn(commandLine, nullptr); }

std::string captureByHand(const std::string& commandLine) {
  std::array<int, 2> ends{};
  if (::pipe2(ends.data(), O_CLOEXEC) != 0) {
    std::abort();
  }
  posix_spawn_file_actions_t actions;
  ::posix_spawn_file_actions_init(&actions);
  ::posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
  ::posix_spawn_file_actions_adddup2(&actions, ends[1], STDOUT_FILENO);
  ::posix_spawn_file_actions_adddup2(&actions, ends[1], STDERR_FILENO);
  const pid_t child = spawn(commandLine, &actions);
  ::posix_spawn_file_actions_destroy(&actions);
  ::close(ends[1]);
  std::string output;
  std::array<char, 4096> chunk{};
  ssize_t count = 0;
  while ((count = ::read(ends[0], chunk.data(), chunk.size())) > 0) {
    output.append(chunk.data(), static_cast<std::size_t>(count));
  }
  ::close(ends[0]);
  ::waitpid(child, nullptr, 0);
  return output;
}

std::string captureByPopen(const std::string& commandLine) {
  FILE* const stream = ::popen(("/bin/zsh -c '" + commandLine + "' 2>&1 </dev/null").c_str(), "re");
  if (stream == nullptr) {
    std::abort();
  }
  std::string output;
  std::array<char, 4096> chunk{};
  std::size_t count = 0;
  while ((count = std::fread(chunk.data(), 1, chunk.size(), stream)) > 0) {
    output.append(chunk.data(), count);
  }
  ::pclose(stream);
  return output;
}

}  // namespace tarnwell::bench
