#include "standin/killall/KillAll.h"

#include <chrono>
#include <optional>
#include <vector>

#include "standin/killall/FolderWatch.h"
#include "standin/killall/RunningProcess.h"
#include "standin/store/FileLock.h"
#include "standin/store/SystemRoot.h"

namespace tarnwell::standin {
namespace {

using Clock = std::chrono::steady_clock;

// For a process that comes, and again for one that goes.
constexpr std::chrono::seconds patience{2};

bool isStartedAgain(std::string_view name, const std::string& root) {
  return name == "Dock" && !RunningProcess::named("dock-supervisor", root).empty();
}

// A Dock writes to its log when it starts, which tells when to look again.
std::vector<RunningProcess> processesToEnd(std::string_view name, const std::string& root) {
  const FolderWatch logs(logsFolder(root));
  std::vector<RunningProcess> found = RunningProcess::named(name, root);
  if (!found.empty() || !isStartedAgain(name, root)) {
    return found;
  }
  const Clock::time_point end = Clock::now() + patience;
  while (found.empty() && logs.wait(end)) {
    found = RunningProcess::named(name, root);
  }
  return found;
}

}  // namespace

bool killAll(std::string_view name, const std::string& root) {
  // Where there is no lock to be had, they meet what they meet.
  const std::optional<FileLock> turn = FileLock::acquire(root + "/.killall.lock", LockWait::untilFree);
  const std::vector<RunningProcess> found = processesToEnd(name, root);
  bool isAnyAsked = false;
  for (const RunningProcess& each : found) {
    isAnyAsked = each.terminate() || isAnyAsked;
  }
  const Clock::time_point end = Clock::now() + patience;
  for (const RunningProcess& each : found) {
    each.waitForEnding(end);
  }
  return isAnyAsked;
}

}  // namespace tarnwell::standin
