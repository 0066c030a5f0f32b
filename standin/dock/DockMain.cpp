/// A stand-in for the Dock of macOS: a process of that name which reads its settings from the preferences when it
/// starts, says in its log what it has read, and then waits to be killed. It never reads them again: as on macOS, a
/// change takes effect when the Dock is killed and dock-supervisor starts it anew. Where there is a display it has a
/// UI show what the settings do, a process that outlives it: a toolkit takes its time to load, and each of several
/// kills in a row must find a Dock that has spoken.

#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "diagnostics/Console.h"
#include "diagnostics/StandardStreams.h"
#include "standin/dock/DockBehavior.h"
#include "standin/dock/DockLog.h"
#include "standin/dock/UiProcess.h"
#include "standin/store/Domain.h"
#include "standin/store/SystemRoot.h"
#include "standin/store/Timestamp.h"

namespace tarnwell::standin {
namespace {

constexpr std::string_view usageText = R"(Usage: Dock [--ui | --no-window | --list | --help]

Reads the settings of com.apple.dock once, writes them to $MACOS_ROOT/Library/Logs/Dock.log and shows a dock that goes
by them until it is killed. MACOS_ROOT is ~/.local/share/macos-standin unless set.

  --ui          show it on a UI that is there, which listens at its open file 3
  --no-window   show nothing, as where there is no display
  --list        print the settings that it would go by, one "key value" a line, and end
  --help        this text
)";

// The parent process may have ignored it, and then killall would have no effect; the supervisor has blocked it. None
// that comes before the line in the log is lost, nor does it come through before that.
void setTermination(int how) {
  sigset_t termination;
  ::sigemptyset(&termination);
  ::sigaddset(&termination, SIGTERM);
  ::sigprocmask(how, &termination, nullptr);
  (void)std::signal(SIGTERM, SIG_DFL);
}

void logSettings(const std::string& root, const StoredPreferences& stored) {
  const std::string line = timestamp() + " Dock[" + std::to_string(::getpid()) + "] " + logText(stored);
  if (!appendToDockLog(logsFolder(root), line)) {
    // A Dock without a log is still a Dock.
    diagnostics::printError(std::string("Dock: cannot write its log: ") + std::strerror(errno) + "\n");
  }
}

enum class Mode { ownUi, givenUi, noWindow, list };

// A Dock that is started by itself has a UI of its own, which ends with it.
void show(Mode mode, const std::string& behavior) {
  constexpr int given = 3;
  const std::unique_ptr<UiProcess> own = mode == Mode::ownUi ? UiProcess::start() : nullptr;
  if (mode == Mode::givenUi || own) {
    showOn(own ? own->socket() : given, behavior);
    // Without a UI it is no use; the next Dock brings another one.
    ::_exit(EXIT_FAILURE);
  }
}

int run(Mode mode) {
  const auto root = systemRoot();
  if (!root) {
    diagnostics::printErrorLine("Dock: " + root.error().message);
    return 1;
  }
  const StoredPreferences stored = loadPreferences(Domain::resolve("com.apple.dock", *root)->path);
  if (mode == Mode::list) {
    return diagnostics::print(listText(dockBehavior(stored))) ? 0 : 1;
  }
  setTermination(SIG_BLOCK);
  logSettings(*root, stored);
  setTermination(SIG_UNBLOCK);
  // What was read and logged, since the preferences may have changed meanwhile.
  show(mode, listText(dockBehavior(stored)));
  for (;;) {
    ::pause();
  }
}

int runAs(const std::vector<std::string_view>& arguments) {
  if (arguments.empty()) {
    return run(Mode::ownUi);
  }
  // Each argument is a way of running by itself, so that there is none that a second one could be.
  const std::string_view argument = arguments.size() > 1 ? "" : arguments.front();
  if (argument == "--help") {
    return diagnostics::print(usageText) ? 0 : 1;
  }
  if (argument == "--ui") {
    return run(Mode::givenUi);
  }
  if (argument == "--no-window") {
    return run(Mode::noWindow);
  }
  if (argument == "--list") {
    return run(Mode::list);
  }
  diagnostics::printError("Dock: unknown argument " + std::string(arguments.back()) + "\n" + std::string(usageText));
  return 2;
}

}  // namespace
}  // namespace tarnwell::standin

int main(int argc, char** argv) {
  tarnwell::diagnostics::prepareStandardStreams();
  return tarnwell::standin::runAs({argv + 1, argv + argc});
}
