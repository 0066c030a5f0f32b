#include <libproc.h>
#include <sys/sysctl.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdint>
#include <cstring>

#include "system/processes/Process.h"
#include "system/processes/RunningProcess.h"

namespace tarnwell::system {
namespace {

/// Of a kind that libproc knows, such as those of a user.
std::vector<pid_t> numbersOf(std::uint32_t kind, std::uint32_t value) {
  // Some may come meanwhile.
  constexpr std::size_t spare = 64;
  const auto countIn = [](int bytes) { return static_cast<std::size_t>(bytes < 0 ? 0 : bytes) / sizeof(pid_t); };
  std::vector<pid_t> numbers(countIn(::proc_listpids(kind, value, nullptr, 0)) + spare);
  const auto size = static_cast<int>(numbers.size() * sizeof(pid_t));
  numbers.resize(countIn(::proc_listpids(kind, value, numbers.data(), size)));
  return numbers;
}

// One of them, or their end.
auto nameOf(pid_t process, std::span<const std::string_view> names) {
  std::array<char, 2 * MAXCOMLEN + 1> found{};
  const bool isTold = ::proc_name(process, found.data(), found.size()) > 0;
  return std::ranges::find_if(names, [&](std::string_view name) {
    return isTold && name.substr(0, std::strlen(found.data())) == found.data();
  });
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

std::vector<RunningProcess> RunningProcess::named(std::span<const std::string_view> names) {
  return named(names, numbersOf(PROC_UID_ONLY, ::geteuid()));
}

std::vector<RunningProcess> RunningProcess::childrenNamed(std::string_view name) const {
  return named({&name, 1}, numbersOf(PROC_PPID_ONLY, static_cast<std::uint32_t>(number_)));
}

std::vector<RunningProcess> RunningProcess::named(std::span<const std::string_view> names,
                                                  std::span<const pid_t> numbers) {
  std::vector<RunningProcess> found;
  for (const pid_t number : numbers) {
    const auto name = nameOf(number, names);
    if (number == ::getpid() || name == names.end()) {
      continue;
    }
    Descriptor ended = Process::processDescriptor(number);
    const bool hasEnded = !ended || ended.waitUntilReadable(std::chrono::steady_clock::now());
    if (!hasEnded && nameOf(number, names) == name) {
      found.push_back(RunningProcess(number, *name, std::move(ended)));
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
