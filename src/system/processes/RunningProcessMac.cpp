#include <libproc.h>
#include <sys/sysctl.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstring>

#include "system/processes/Process.h"
#include "system/processes/RunningProcess.h"

namespace tarnwell::system {
namespace {

std::vector<pid_t> numbers() {
  // Some may come meanwhile.
  constexpr int spare = 64;
  std::vector<pid_t> numbers(static_cast<std::size_t>(::proc_listallpids(nullptr, 0) + spare));
  const int count = ::proc_listallpids(numbers.data(), static_cast<int>(numbers.size() * sizeof(pid_t)));
  numbers.resize(static_cast<std::size_t>(count < 0 ? 0 : count));
  return numbers;
}

bool isNamed(pid_t process, std::string_view name) {
  std::array<char, 2 * MAXCOMLEN + 1> found{};
  return ::proc_name(process, found.data(), found.size()) > 0 &&
         name.substr(0, std::strlen(found.data())) == found.data();
}

/// A number, the program's path, the arguments and the environment, as many arguments as the number says.
std::string startText(pid_t process) {
  std::array<int, 3> query = {CTL_KERN, KERN_PROCARGS2, process};
  std::size_t size = 0;
  if (::sysctl(query.data(), query.size(), nullptr, &size, nullptr, 0) != 0) {
    return {};
  }
  std::string text(size, '\0');
  const bool isTold = ::sysctl(query.data(), query.size(), text.data(), &size, nullptr, 0) == 0;
  text.resize(isTold ? size : 0);
  return text;
}

}  // namespace

std::vector<RunningProcess> RunningProcess::named(std::string_view name) {
  std::vector<RunningProcess> found;
  for (const pid_t number : numbers()) {
    if (number == ::getpid() || !isNamed(number, name)) {
      continue;
    }
    Descriptor ended = Process::processDescriptor(number);
    const bool hasEnded = !ended || ended.waitUntilReadable(std::chrono::steady_clock::now());
    if (!hasEnded && isNamed(number, name)) {
      found.push_back(RunningProcess(number, std::move(ended)));
    }
  }
  return found;
}

std::vector<std::string> RunningProcess::environment() const {
  const std::string text = startText(number_);
  int arguments = 0;
  if (text.size() < sizeof arguments) {
    return {};
  }
  std::memcpy(&arguments, text.data(), sizeof arguments);
  // The path is followed by more than one end.
  std::size_t at = text.find_first_not_of('\0', text.find('\0', sizeof arguments));
  std::vector<std::string> variables;
  while (at < text.size() && text[at] != '\0') {
    const std::string word = text.c_str() + at;
    at += word.size() + 1;
    if (arguments-- <= 0) {
      variables.push_back(word);
    }
  }
  return variables;
}

std::filesystem::path RunningProcess::workingFolder() const {
  proc_vnodepathinfo paths = {};
  ::proc_pidinfo(number_, PROC_PIDVNODEPATHINFO, 0, &paths, sizeof paths);
  return paths.pvi_cdir.vip_path;
}

bool RunningProcess::send(int signal) const {
  return !ended_.waitUntilReadable(std::chrono::steady_clock::now()) && ::kill(number_, signal) == 0;
}

}  // namespace tarnwell::system
