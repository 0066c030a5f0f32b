/// A stand-in for the `killall` tool of macOS: ends the processes of a name, of those that belong to the same played
/// system, which are those with the same MACOS_ROOT. So it never ends a program of the same name that has nothing to do
/// with it. It differs from the original in these points:
///   - It sends no signal but SIGTERM, and has none of the original's options but -s.
///   - Several that run at once take turns, and each meets a Dock that was not yet asked to end: where each of many
///     settings restarts the Dock, the Dock is restarted as many times.

#include <algorithm>
#include <chrono>
#include <csignal>
#include <filesystem>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#include "diagnostics/Console.h"
#include "diagnostics/StandardStreams.h"
#include "standin/store/SystemRoot.h"
#include "system/events/FolderWatch.h"
#include "system/files/FileLock.h"
#include "system/processes/RunningProcess.h"

namespace tarnwell::standin {
namespace {

constexpr std::string_view usageText = R"(Usage: killall [-s] NAME ... | --help

Asks every process of a name that has the same MACOS_ROOT to end. MACOS_ROOT is ~/.local/share/macos-standin unless set.

  -s   print what would be done, and do nothing
)";

using Clock = std::chrono::steady_clock;

// For a process that comes, and again for one that goes.
constexpr std::chrono::seconds patience{2};

bool playsIn(const system::RunningProcess& process, const std::string& root) {
  const std::vector<std::string> environment = process.environment();
  const auto folder = systemRoot([&](const std::string& name) {
    const auto variable =
        std::ranges::find_if(environment, [&](const std::string& each) { return each.starts_with(name + "="); });
    return variable == environment.end() ? std::string() : variable->substr(name.size() + 1);
  });
  std::error_code error;
  return folder && std::filesystem::equivalent(process.workingFolder() / *folder, root, error);
}

std::vector<system::RunningProcess> processesOf(std::string_view name, const std::string& root) {
  std::vector<system::RunningProcess> processes = system::RunningProcess::named(name);
  std::erase_if(processes, [&](const system::RunningProcess& each) { return !playsIn(each, root); });
  return processes;
}

bool isStartedAgain(std::string_view name, const std::string& root) {
  return name == "Dock" && !processesOf("dock-supervisor", root).empty();
}

// One that was found may have ended before it is asked, as if it had not been there.
std::vector<system::RunningProcess> askThoseThere(std::string_view name, const std::string& root) {
  std::vector<system::RunningProcess> found = processesOf(name, root);
  std::erase_if(found, [](const system::RunningProcess& each) { return !each.send(SIGTERM); });
  return found;
}

// A Dock writes to its log when it starts, which tells when to look again.
std::vector<system::RunningProcess> askToEnd(std::string_view name, const std::string& root) {
  const system::FolderWatch logs(logsFolder(root));
  std::vector<system::RunningProcess> asked = askThoseThere(name, root);
  if (!asked.empty() || !isStartedAgain(name, root)) {
    return asked;
  }
  const Clock::time_point end = Clock::now() + patience;
  while (asked.empty() && logs.wait(end)) {
    asked = askThoseThere(name, root);
  }
  return asked;
}

// Asks every process of a name that plays in the system of `root` to end, and sees them end. False when there was none.
//
// One call after the other, also those of different processes: each meets processes that no call before it has met. A
// Dock that was just ended is started again by its supervisor, so that the next call waits for it, two seconds at most.
bool killAll(std::string_view name, const std::string& root) {
  // Where there is no lock to be had, they meet what they meet.
  const auto turn = system::FileLock::take(root + "/.killall.lock", system::FileLock::unlimited);
  const std::vector<system::RunningProcess> asked = askToEnd(name, root);
  const Clock::time_point end = Clock::now() + patience;
  for (const system::RunningProcess& each : asked) {
    each.waitForEnd(end);
  }
  return !asked.empty();
}

// Prints what would be done to those that are there now. False when there is none.
bool showAll(std::string_view name, const std::string& root) {
  const std::vector<system::RunningProcess> found = processesOf(name, root);
  for (const system::RunningProcess& each : found) {
    diagnostics::printLine("kill -TERM " + std::to_string(each.number()));
  }
  return !found.empty();
}

int run(std::vector<std::string_view> arguments) {
  if (arguments.size() == 1 && arguments.front() == "--help") {
    return diagnostics::print(usageText) ? 0 : 1;
  }
  const bool onlyShows = !arguments.empty() && arguments.front() == "-s";
  arguments.erase(arguments.begin(), arguments.begin() + (onlyShows ? 1 : 0));
  if (arguments.empty() || arguments.front().starts_with('-')) {
    diagnostics::printError(usageText);
    return 1;
  }
  const auto root = systemRoot();
  if (!root) {
    diagnostics::printErrorLine("killall: " + root.error().message);
    return 1;
  }
  int status = 0;
  for (const std::string_view name : arguments) {
    if (!(onlyShows ? showAll(name, *root) : killAll(name, *root))) {
      diagnostics::printErrorLine("No matching processes belonging to you were found");
      status = 1;
    }
  }
  return status;
}

}  // namespace
}  // namespace tarnwell::standin

int main(int argc, char** argv) {
  tarnwell::diagnostics::prepareStandardStreams();
  return tarnwell::standin::run({argv + (argc > 0 ? 1 : 0), argv + argc});
}
