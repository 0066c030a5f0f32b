/// A stand-in for the `killall` tool of macOS: ends the processes of a name, of those that belong to the same played
/// system, which are those with the same MACOS_ROOT. So it never ends a program of the same name that has nothing to do
/// with it. It differs from the original in these points:
///   - It sends no signal but SIGTERM, and has none of the original's options.
///   - Several that run at once take turns, and each meets a Dock that was not yet asked to end: where each of many
///     settings restarts the Dock, the Dock is restarted as many times.

#include <chrono>
#include <string>
#include <string_view>
#include <vector>

#include "diagnostics/Console.h"
#include "diagnostics/StandardStreams.h"
#include "standin/killall/RunningProcess.h"
#include "standin/store/SystemRoot.h"
#include "system/FileLock.h"
#include "system/FolderWatch.h"

namespace tarnwell::standin {
namespace {

constexpr std::string_view usageText = R"(Usage: killall NAME ... | --help

Asks every process of a name that has the same MACOS_ROOT to end. MACOS_ROOT is ~/.local/share/macos-standin unless set.
)";

using Clock = std::chrono::steady_clock;

// For a process that comes, and again for one that goes.
constexpr std::chrono::seconds patience{2};

bool isStartedAgain(std::string_view name, const std::string& root) {
  return name == "Dock" && !RunningProcess::named("dock-supervisor", root).empty();
}

// One that was found may have ended before it is asked, as if it had not been there.
std::vector<RunningProcess> askThoseThere(std::string_view name, const std::string& root) {
  std::vector<RunningProcess> found = RunningProcess::named(name, root);
  std::erase_if(found, [](const RunningProcess& each) { return !each.terminate(); });
  return found;
}

// A Dock writes to its log when it starts, which tells when to look again.
std::vector<RunningProcess> askToEnd(std::string_view name, const std::string& root) {
  const system::FolderWatch logs(logsFolder(root));
  std::vector<RunningProcess> asked = askThoseThere(name, root);
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
  const std::vector<RunningProcess> asked = askToEnd(name, root);
  const Clock::time_point end = Clock::now() + patience;
  for (const RunningProcess& each : asked) {
    each.waitForEnding(end);
  }
  return !asked.empty();
}

int run(const std::vector<std::string_view>& arguments) {
  if (arguments.size() == 1 && arguments.front() == "--help") {
    return diagnostics::print(usageText) ? 0 : 1;
  }
  if (arguments.empty() || arguments.front().starts_with('-')) {
    diagnostics::printError(usageText);
    return 1;
  }
  const auto [root, problem] = systemRoot();
  if (!root) {
    diagnostics::printErrorLine("killall: " + problem);
    return 1;
  }
  int status = 0;
  for (const std::string_view name : arguments) {
    if (!killAll(name, *root)) {
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
