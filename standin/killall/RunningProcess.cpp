#include "standin/killall/RunningProcess.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <algorithm>
#include <charconv>
#include <csignal>
#include <memory>
#include <sstream>
#include <utility>

#include "standin/store/SystemRoot.h"
#include "system/Process.h"

namespace tarnwell::standin {
namespace {

constexpr std::size_t longestName = 15;

std::string contentOf(const std::string& path) {
  const system::Descriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
  return file ? file.readAll().value_or("") : std::string();
}

// The environment it was started with: one "NAME=value" after the other, each closed by a zero byte.
std::string variableIn(const std::string& environment, const std::string& name) {
  const std::string wanted = name + "=";
  for (std::size_t begin = 0; begin < environment.size(); begin = environment.find('\0', begin) + 1) {
    const char* const each = environment.c_str() + begin;
    if (std::string_view(each).starts_with(wanted)) {
      return each + wanted.size();
    }
    if (environment.find('\0', begin) == std::string::npos) {
      break;
    }
  }
  return {};
}

bool isSameFolder(const std::string& left, const std::string& right) {
  struct stat one {};
  struct stat other {};
  return ::stat(left.c_str(), &one) == 0 && ::stat(right.c_str(), &other) == 0 && one.st_dev == other.st_dev &&
         one.st_ino == other.st_ino;
}

/// What the kernel says of a process in one line.
struct Standing {
  bool isEnding = true;  // or gone
  pid_t parent = 0;
};

Standing standingOf(const std::string& process) {
  const std::string line = contentOf(process + "/stat");
  std::istringstream words(line.substr(std::min(line.rfind(')'), line.size() - 1) + 1));
  char state = 'X';
  Standing standing;
  unsigned long flags = 0;
  std::string ignored;
  words >> state >> standing.parent >> ignored >> ignored >> ignored >> ignored >> flags;
  constexpr unsigned long exiting = 0x4;
  standing.isEnding = !words || state == 'Z' || state == 'X' || (flags & exiting) != 0;
  return standing;
}

// A process that is about to go on as another program has no environment for a moment, but its parent has.
std::string environmentOf(const std::string& process) {
  const std::string own = contentOf(process + "/environ");
  return own.empty() ? contentOf("/proc/" + std::to_string(standingOf(process).parent) + "/environ") : own;
}

// Another user's shows no environment.
bool playsIn(const std::string& process, const std::string& root) {
  if (standingOf(process).isEnding) {
    return false;
  }
  const std::string environment = environmentOf(process);
  const auto found = systemRoot([&](const std::string& name) { return variableIn(environment, name); }).folder;
  return found && isSameFolder(found->starts_with('/') ? *found : process + "/cwd/" + *found, root);
}

}  // namespace

std::vector<RunningProcess> RunningProcess::named(std::string_view name, const std::string& root) {
  const std::unique_ptr<DIR, int (*)(DIR*)> folder(::opendir("/proc"), ::closedir);
  std::vector<RunningProcess> processes;
  while (const dirent* entry = folder ? ::readdir(folder.get()) : nullptr) {  // NOLINT(concurrency-mt-unsafe)
    const std::string_view number(static_cast<const char*>(entry->d_name));
    pid_t id = 0;
    if (std::from_chars(number.data(), number.data() + number.size(), id).ec == std::errc() && id != ::getpid()) {
      if (auto process = hold(id, name, root)) {
        processes.push_back(std::move(*process));
      }
    }
  }
  return processes;
}

// Held first and looked at then, so that what was looked at is what is held.
std::optional<RunningProcess> RunningProcess::hold(pid_t number, std::string_view name, const std::string& root) {
  const std::string folder = "/proc/" + std::to_string(number);
  const std::string line = std::string(name.substr(0, longestName)) + "\n";
  if (contentOf(folder + "/comm") != line) {
    return std::nullopt;
  }
  system::Descriptor process = system::Process::processDescriptor(number);
  if (!process || contentOf(folder + "/comm") != line || !playsIn(folder, root)) {
    return std::nullopt;
  }
  return RunningProcess(std::move(process));
}

bool RunningProcess::terminate() const {
  return ::syscall(SYS_pidfd_send_signal, process_.number(), SIGTERM, nullptr, 0) == 0;
}

bool RunningProcess::waitForEnding(std::chrono::steady_clock::time_point end) const {
  return process_.waitUntilReadable(end);
}

}  // namespace tarnwell::standin
