#include "system/processes/RunningProcessLinux.h"

#include <sys/syscall.h>
#include <unistd.h>

#include <algorithm>
#include <charconv>
#include <sstream>
#include <system_error>
#include <utility>

#include "system/files/ReadFile.h"
#include "system/processes/Process.h"
#include "system/processes/RunningProcess.h"

namespace tarnwell::system {
namespace {

constexpr std::size_t longestName = 15;

std::string folderOf(pid_t process) { return "/proc/" + std::to_string(process); }

std::string contentOf(const std::string& path) {
  auto content = readFile(path, std::string::npos);
  return content ? *std::move(content) : std::string();
}

ProcessStanding standingOf(pid_t process) { return standingIn(contentOf(folderOf(process) + "/stat")); }

bool isNamed(pid_t process, std::string_view name) {
  return contentOf(folderOf(process) + "/comm") == std::string(name.substr(0, longestName)) + "\n";
}

}  // namespace

ProcessStanding standingIn(const std::string& line) {
  std::istringstream words(line.substr(std::min(line.rfind(')'), line.size() - 1) + 1));
  char state = 'X';
  ProcessStanding standing;
  unsigned long flags = 0;
  std::string ignored;
  words >> state >> standing.parent >> ignored >> ignored >> ignored >> ignored >> flags;
  constexpr unsigned long exiting = 0x4;
  standing.isEnding = !words || state == 'Z' || state == 'X' || (flags & exiting) != 0;
  return standing;
}

std::vector<std::string> variablesIn(const std::string& text) {
  std::vector<std::string> variables;
  std::istringstream lines(text);
  for (std::string line; std::getline(lines, line, '\0');) {
    variables.push_back(std::move(line));
  }
  return variables;
}

std::vector<RunningProcess> RunningProcess::named(std::string_view name) {
  std::vector<RunningProcess> found;
  std::error_code error;
  for (std::filesystem::directory_iterator each("/proc", error), end; !error && each != end; each.increment(error)) {
    const std::string entry = each->path().filename();
    pid_t number = 0;
    std::from_chars(entry.data(), entry.data() + entry.size(), number);
    if (number <= 0 || number == ::getpid() || !isNamed(number, name)) {
      continue;
    }
    // Held first and looked at then, so that what was looked at is what is held.
    Descriptor ended = Process::processDescriptor(number);
    if (ended && isNamed(number, name) && !standingOf(number).isEnding) {
      found.push_back(RunningProcess(number, std::move(ended)));
    }
  }
  return found;
}

// A process that is about to go on as another program has no environment for a moment, but its parent has.
std::vector<std::string> RunningProcess::environment() const {
  std::string text = contentOf(folderOf(number_) + "/environ");
  const ProcessStanding standing = standingOf(number_);
  if (standing.isEnding) {
    return {};
  }
  if (text.empty()) {
    text = contentOf(folderOf(standing.parent) + "/environ");
  }
  return variablesIn(text);
}

std::filesystem::path RunningProcess::workingFolder() const { return folderOf(number_) + "/cwd"; }

bool RunningProcess::send(int signal) const {
  return ::syscall(SYS_pidfd_send_signal, ended_.number(), signal, nullptr, 0) == 0;
}

}  // namespace tarnwell::system
