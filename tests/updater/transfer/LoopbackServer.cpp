#include "updater/transfer/LoopbackServer.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <sstream>
#include <stdexcept>

#include "fixtures/WaitFor.h"

namespace tarnwell::updater {

LoopbackServer::LoopbackServer() : noProxy_("no_proxy", "*") {
  std::filesystem::create_directory(folder_ / "www");
  std::array<int, 2> ends = {};
  if (::pipe2(ends.data(), O_CLOEXEC) != 0) {
    throw std::runtime_error("no pipe");
  }
  posix_spawn_file_actions_t actions;
  ::posix_spawn_file_actions_init(&actions);
  ::posix_spawn_file_actions_adddup2(&actions, ends[0], STDIN_FILENO);
  std::string program = LOOPBACK_SERVER;
  std::string folder = folder_.path().string();
  const std::array<char*, 3> arguments = {program.data(), folder.data(), nullptr};
  const int error = ::posix_spawn(&process_, program.c_str(), &actions, nullptr, arguments.data(), environ);
  ::posix_spawn_file_actions_destroy(&actions);
  ::close(ends[0]);
  input_ = ends[1];
  if (error != 0 ||
      !fixtures::waitFor([this] { return folder_.read("addresses").find("unknown=") != std::string::npos; })) {
    throw std::runtime_error("no server");
  }
}

LoopbackServer::~LoopbackServer() {
  ::close(input_);
  ::waitpid(process_, nullptr, 0);
}

std::string LoopbackServer::address(const std::string& path, const std::string& certificate) const {
  std::istringstream lines(folder_.read("addresses"));
  for (std::string line; std::getline(lines, line);) {
    if (line.starts_with(certificate + "=")) {
      return line.substr(certificate.size() + 1) + path;
    }
  }
  throw std::runtime_error("the server has no certificate " + certificate);
}

}  // namespace tarnwell::updater
