#include "commandline/dock/DockRestart.h"

#include <chrono>
#include <set>
#include <sstream>
#include <thread>

namespace tarnwell::commandline {
namespace {

using Clock = std::chrono::steady_clock;
using Lines = std::set<std::string>;

constexpr std::chrono::seconds dockPatience{5};
constexpr std::chrono::milliseconds pause{50};
// What the tool exits with where no process has the name.
constexpr int noProcess = 1;

/// A line for each that runs.
Lines runningDocks(Shell& shell) {
  const auto shown = outputOf(shell, "killall -s Dock");
  std::istringstream output(shown ? *shown : std::string());
  Lines lines;
  for (std::string line; std::getline(output, line);) {
    lines.insert(line);
  }
  return lines;
}

}  // namespace

Restart restartDock(Shell& shell) {
  const Lines before = runningDocks(shell);
  const auto ended = shell.run(restartLine);
  if (ended && ended->end.how == system::ProcessEnd::How::exited && ended->end.number == noProcess) {
    return Restart::noDock;
  }
  if (!ended || !ended->end.isSuccess()) {
    return Restart::notBack;
  }
  // Nothing tells when the system has started another one.
  for (const auto end = Clock::now() + dockPatience; Clock::now() < end; std::this_thread::sleep_for(pause)) {
    for (const std::string& line : runningDocks(shell)) {
      if (line.starts_with("kill ") && !before.contains(line)) {
        return Restart::done;
      }
    }
  }
  return Restart::notBack;
}

}  // namespace tarnwell::commandline
