#include "core/ShellTest.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "fixtures/WaitFor.h"

namespace tarnwell::core {
namespace {

bool isOwnZombie(const std::filesystem::path& process) {
  std::ifstream file(process / "stat");
  std::string line;
  // Empty for a process that is gone by now.
  std::getline(file, line);
  const std::string end = ") Z " + std::to_string(::getpid()) + " ";
  return line.find(end) != std::string::npos;
}

}  // namespace

ShellTest::ShellTest() {
  ::mkfifo(path("gate").c_str(), 0600);
  // Open for both directions, so that neither side waits for the other to open it.
  gate_ = ::open(path("gate").c_str(), O_RDWR | O_CLOEXEC);
}

ShellTest::~ShellTest() { ::close(gate_); }

void ShellTest::TearDown() {
  EXPECT_TRUE(fixtures::waitFor([this] { return allReaped(); }));
}

void ShellTest::release() const { EXPECT_EQ(::write(gate_, "\n", 1), 1); }

bool ShellTest::allReaped() {
  runner.reap();
  return !hasChildren();
}

bool ShellTest::isReadable() const {
  pollfd descriptor = {.fd = runner.descriptor(), .events = POLLIN, .revents = 0};
  return ::poll(&descriptor, 1, 0) == 1;
}

int zombieCount() {
  const std::filesystem::directory_iterator processes("/proc");
  return static_cast<int>(
      std::count_if(begin(processes), end(processes), [](const auto& entry) { return isOwnZombie(entry.path()); }));
}

bool hasChildren() {
  siginfo_t info = {};
  return ::waitid(P_ALL, 0, &info, WEXITED | WNOHANG | WNOWAIT) == 0 || errno != ECHILD;
}

int openDescriptorCount() {
  const std::filesystem::directory_iterator descriptors("/proc/self/fd");
  return static_cast<int>(std::distance(begin(descriptors), end(descriptors)));
}

}  // namespace tarnwell::core
