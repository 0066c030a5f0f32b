#include "standin/killall/KillAll.h"

#include <chrono>
#include <vector>

#include "standin/killall/FolderWatch.h"
#include "standin/killall/RunningProcess.h"
#include "standin/store/SystemRoot.h"
#include "system/FileLock.h"

namespace tarnwell::standin {
namespace {

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
  const FolderWatch logs(logsFolder(root));
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

}  // namespace

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

}  // namespace tarnwell::standin
