// Every program that ships, started with its standard streams closed. What it has opened in their place is seen in the
// moment in which it ends.
#include <gtest/gtest.h>
#include <sys/ptrace.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

namespace tarnwell {
namespace {

namespace fs = std::filesystem;

std::vector<std::string> programs() {
  std::istringstream list(SHIPPED_PROGRAMS);
  std::vector<std::string> paths;
  for (std::string path; std::getline(list, path, ':');) {
    paths.push_back(path);
  }
  return paths;
}

/// A traced copy of this process that has become the program, with no standard stream.
[[noreturn]] void become(const char* program) {
  for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
    ::close(stream);
  }
  // Nothing says where preferences are, so that no program gets far. Nor is there a second tracer, which looks for
  // leaks.
  const std::array<char*, 2> environment = {const_cast<char*>("ASAN_OPTIONS=detect_leaks=0"), nullptr};
  const std::array<char*, 3> arguments = {const_cast<char*>(program), const_cast<char*>("--help"), nullptr};
  ::ptrace(PTRACE_TRACEME, 0, nullptr, nullptr);
  ::execve(program, arguments.data(), environment.data());
  ::_exit(EXIT_FAILURE);
}

/// Lets it run until it is about to exit. False when something else has become of it.
bool runsToItsExit(pid_t child) {
  int status = 0;
  if (::waitpid(child, &status, 0) != child || !WIFSTOPPED(status) ||
      ::ptrace(PTRACE_SETOPTIONS, child, nullptr, PTRACE_O_TRACEEXIT | PTRACE_O_EXITKILL) != 0) {
    return false;
  }
  constexpr int exiting = SIGTRAP | PTRACE_EVENT_EXIT << 8;
  for (int signal = 0; ::ptrace(PTRACE_CONT, child, nullptr, signal) == 0;) {
    if (::waitpid(child, &status, 0) != child || !WIFSTOPPED(status)) {
      return false;
    }
    if (status >> 8 == exiting) {
      return true;
    }
    signal = WSTOPSIG(status);
  }
  return false;
}

class ClosedStreamsTest : public testing::TestWithParam<std::string> {};

TEST_P(ClosedStreamsTest, areTheNullDevice) {
  const pid_t child = ::fork();
  if (child == 0) {
    become(GetParam().c_str());
  }
  ASSERT_GT(child, 0);
  ASSERT_TRUE(runsToItsExit(child));
  for (const char* stream : {"0", "1", "2"}) {
    std::error_code error;
    EXPECT_EQ(fs::read_symlink("/proc/" + std::to_string(child) + "/fd/" + stream, error), "/dev/null") << stream;
  }
  // Not a signal: what is ending hears of none.
  ::ptrace(PTRACE_DETACH, child, nullptr, nullptr);
  ::waitpid(child, nullptr, 0);
}

INSTANTIATE_TEST_SUITE_P(programs, ClosedStreamsTest, testing::ValuesIn(programs()), [](const auto& tested) {
  const fs::path path = tested.param;
  std::string name = path.parent_path().filename().string() + "_" + path.filename().string();
  std::erase_if(name, [](char c) { return std::isalnum(static_cast<unsigned char>(c)) == 0 && c != '_'; });
  return name;
});

}  // namespace
}  // namespace tarnwell
