#include "system/processes/RunningProcessLinux.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <algorithm>
#include <charconv>
#include <iterator>
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

pid_t numberIn(std::string_view word) {
  pid_t number = 0;
  std::from_chars(word.data(), word.data() + word.size(), number);
  return number;
}

// Those of this process's user.
std::vector<pid_t> ownNumbers() {
  std::vector<pid_t> numbers;
  const uid_t user = ::geteuid();
  std::error_code error;
  for (std::filesystem::directory_iterator each("/proc", error), end; !error && each != end; each.increment(error)) {
    const std::filesystem::path& path = each->path();
    struct stat status = {};
    const pid_t number = numberIn(path.filename().native());
    if (number > 0 && ::stat(path.c_str(), &status) == 0 && status.st_uid == user) {
      numbers.push_back(number);
    }
  }
  return numbers;
}

// One of them, or their end.
auto nameOf(pid_t process, std::span<const std::string_view> names) {
  const Descriptor file(::open((folderOf(process) + "/comm").c_str(), O_RDONLY | O_CLOEXEC));
  const std::string found = file.readPart().value_or("");
  return std::ranges::find_if(
      names, [&](std::string_view name) { return found == std::string(name.substr(0, longestName)) + "\n"; });
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

std::vector<RunningProcess> RunningProcess::named(std::span<const std::string_view> names) {
  return named(names, ownNumbers());
}

std::vector<RunningProcess> RunningProcess::childrenNamed(std::string_view name) const {
  std::istringstream children(contentOf(folderOf(number_) + "/task/" + std::to_string(number_) + "/children"));
  return named({&name, 1}, std::vector<pid_t>(std::istream_iterator<pid_t>(children), {}));
}

std::vector<RunningProcess> RunningProcess::named(std::span<const std::string_view> names,
                                                  std::span<const pid_t> numbers) {
  std::vector<RunningProcess> found;
  const pid_t own = ::getpid();
  for (const pid_t number : numbers) {
    const auto name = nameOf(number, names);
    if (number == own || name == names.end()) {
      continue;
    }
    // Held first and looked at then, so that what was looked at is what is held.
    Descriptor ended = Process::processDescriptor(number);
    if (ended && nameOf(number, names) == name && !standingOf(number).isEnding) {
      found.push_back(RunningProcess(number, *name, std::move(ended)));
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
