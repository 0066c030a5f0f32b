/// A stand-in for the Dock of macOS: a process of that name which reads its settings from the preferences when it
/// starts, says in its log what it has read, and then waits to be killed. It never reads them again: as on macOS, a
/// change takes effect when the Dock is killed and dock-supervisor starts it anew. Where there is a display it goes on
/// as the program of the same name in the folder "face", which shows what the settings do: a toolkit takes its time to
/// load, and each of several kills in a row must find a Dock that has spoken.

#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "standin/dock/DockBehavior.h"
#include "standin/dock/DockLog.h"
#include "standin/dock/DockSettings.h"
#include "standin/dock/OwnFolder.h"
#include "standin/store/Domain.h"
#include "standin/store/StandardStreams.h"
#include "standin/store/SystemRoot.h"
#include "standin/store/Timestamp.h"

namespace tarnwell::standin {
namespace {

constexpr std::string_view usageText = R"(Usage: Dock [--no-window | --list | --help]

Reads the settings of com.apple.dock once, writes them to $MACOS_ROOT/Library/Logs/Dock.log and shows a dock that goes
by them until it is killed. MACOS_ROOT is ~/.local/share/macos-standin unless set.

  --no-window   show nothing, as where there is no display
  --list        print the settings that it would go by, one "key value" a line, and end
  --help        this text
)";

// Whoever started us may have ignored it, and then killall would have no effect. The supervisor has blocked it.
void letTerminationThrough() {
  (void)std::signal(SIGTERM, SIG_DFL);
  sigset_t termination;
  ::sigemptyset(&termination);
  ::sigaddset(&termination, SIGTERM);
  ::sigprocmask(SIG_UNBLOCK, &termination, nullptr);
}

void logSettings(const std::string& root, const StoredPreferences& stored) {
  const std::string line = timestamp() + " Dock[" + std::to_string(::getpid()) + "] " + dockSettingsText(stored);
  if (!appendToDockLog(logsFolder(root), line)) {
    // A Dock without a log is still a Dock.
    printError(std::string("Dock: cannot write its log: ") + std::strerror(errno) +  // NOLINT(concurrency-mt-unsafe)
               "\n");
  }
}

bool mayHaveDisplay() {
  return std::ranges::any_of(std::array{"DISPLAY", "WAYLAND_DISPLAY"}, [](const char* name) {
    const char* value = std::getenv(name);  // NOLINT(concurrency-mt-unsafe): one thread
    return value != nullptr && *value != '\0';
  });
}

// Hands over what was read and logged, since the preferences may have changed meanwhile. Returns only when there is no
// face.
void becomeFace(std::string behavior) {
  const std::string path = ownFolder() + "/face/Dock";
  std::string name = "Dock";
  std::array<char*, 3> arguments = {name.data(), behavior.data(), nullptr};
  ::execv(path.c_str(), arguments.data());
  printError("Dock: cannot start " + path + ": " + std::strerror(errno) + "\n");  // NOLINT(concurrency-mt-unsafe)
}

enum class Mode { face, noWindow, list };

int run(Mode mode) {
  const std::optional<std::string> root = systemRoot();
  if (!root) {
    printError(std::string("Dock: ") + noRootMessage + "\n");
    return 1;
  }
  const StoredPreferences stored = loadPreferences(Domain::resolve("com.apple.dock", *root)->path);
  if (mode == Mode::list) {
    return printOut(listText(dockBehavior(stored))) ? 0 : 1;
  }
  logSettings(*root, stored);
  letTerminationThrough();
  if (mode == Mode::face && mayHaveDisplay()) {
    becomeFace(listText(dockBehavior(stored)));
  }
  for (;;) {
    ::pause();
  }
}

int runAs(const std::vector<std::string_view>& arguments) {
  if (arguments.empty()) {
    return run(Mode::face);
  }
  // Each argument is a way of running by itself, so that there is none that a second one could be.
  const std::string_view argument = arguments.size() > 1 ? "" : arguments.front();
  if (argument == "--help") {
    return printOut(usageText) ? 0 : 1;
  }
  if (argument == "--list") {
    return run(Mode::list);
  }
  if (argument == "--no-window") {
    return run(Mode::noWindow);
  }
  printError("Dock: unknown argument " + std::string(arguments.back()) + "\n" + std::string(usageText));
  return 2;
}

}  // namespace
}  // namespace tarnwell::standin

int main(int argc, char** argv) {
  tarnwell::standin::prepareStandardStreams();
  return tarnwell::standin::runAs({argv + 1, argv + argc});
}
