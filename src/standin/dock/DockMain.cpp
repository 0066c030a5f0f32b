/// A stand-in for the Dock of macOS: a process of that name which reads its settings from the preferences when it
/// starts, says in its log what it has read, and then waits to be killed. It never reads them again: as on macOS, a
/// change takes effect when the Dock is killed and dock-supervisor starts it anew. It shows nothing on the screen.

#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstring>
#include <optional>
#include <string>
#include <string_view>

#include "standin/dock/DockLog.h"
#include "standin/dock/DockSettings.h"
#include "standin/store/Domain.h"
#include "standin/store/StandardStreams.h"
#include "standin/store/SystemRoot.h"
#include "standin/store/Timestamp.h"

namespace tarnwell::standin {
namespace {

constexpr std::string_view usageText = R"(Usage: Dock [--help]

Reads the settings of com.apple.dock once, writes them to $MACOS_ROOT/Library/Logs/Dock.log and waits until it is
killed. MACOS_ROOT is ~/.local/share/macos-standin unless set.

  --help   this text
)";

// Whoever started us may have ignored or blocked it, and then killall would have no effect.
void letTerminationThrough() {
  (void)std::signal(SIGTERM, SIG_DFL);
  sigset_t termination;
  ::sigemptyset(&termination);
  ::sigaddset(&termination, SIGTERM);
  ::sigprocmask(SIG_UNBLOCK, &termination, nullptr);
}

int logSettings() {
  const std::optional<std::string> root = systemRoot();
  if (!root) {
    printError(std::string("Dock: ") + noRootMessage + "\n");
    return 1;
  }
  const StoredPreferences stored = loadPreferences(Domain::resolve("com.apple.dock", *root)->path);
  const std::string line = timestamp() + " Dock[" + std::to_string(::getpid()) + "] " + dockSettingsText(stored);
  if (!appendToDockLog(logsFolder(*root), line)) {
    // A Dock without a log is still a Dock.
    printError(std::string("Dock: cannot write its log: ") + std::strerror(errno) +  // NOLINT(concurrency-mt-unsafe)
               "\n");
  }
  return 0;
}

}  // namespace
}  // namespace tarnwell::standin

int main(int argc, char** argv) {
  tarnwell::standin::prepareStandardStreams();
  if (argc > 1) {
    const std::string_view argument = argv[1];
    if (argument == "--help") {
      return tarnwell::standin::printOut(tarnwell::standin::usageText) ? 0 : 1;
    }
    tarnwell::standin::printError("Dock: unknown argument " + std::string(argument) + "\n" +
                                  std::string(tarnwell::standin::usageText));
    return 2;
  }
  tarnwell::standin::letTerminationThrough();
  if (const int status = tarnwell::standin::logSettings(); status != 0) {
    return status;
  }
  for (;;) {
    ::pause();
  }
}
