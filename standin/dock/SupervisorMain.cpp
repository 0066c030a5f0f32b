/// Starts the Dock stand-in that lies beside this program, and starts it again whenever it ends, as macOS does with its
/// Dock. Only one supervisor runs for each MACOS_ROOT.

#include <unistd.h>

#include <cerrno>
#include <string>
#include <string_view>

#include "diagnostics/Console.h"
#include "diagnostics/StandardStreams.h"
#include "standin/dock/Supervisor.h"
#include "standin/store/SystemRoot.h"
#include "system/FileLock.h"
#include "system/Folders.h"

namespace tarnwell::standin {
namespace {

constexpr std::string_view usageText = R"(Usage: dock-supervisor [--help]

Keeps the Dock that lies beside this program running until it is ended itself.

  --help   this text
)";

int fail(const std::string& message, int status) {
  diagnostics::printErrorLine("dock-supervisor: " + message);
  return status;
}

int supervise() {
  const auto root = systemRoot();
  if (!root) {
    return fail(root.error().message, 1);
  }
  const std::string lockPath = *root + "/.dock-supervisor.lock";
  if (!system::makeFolders(*root)) {
    return fail(system::systemFailure("cannot lock " + lockPath).message, 1);
  }
  const auto lock = system::FileLock::take(lockPath, {});
  if (!lock) {
    const bool isTaken = lock.error().error == EWOULDBLOCK;
    return fail(isTaken ? "another one is already running for " + *root : lock.error().message, 1);
  }
  Supervisor().run();
  return 0;
}

}  // namespace
}  // namespace tarnwell::standin

int main(int argc, char** argv) {  // NOLINT(bugprone-exception-escape): what is thrown past here is a fault
  using tarnwell::standin::usageText;
  tarnwell::diagnostics::prepareStandardStreams();
  // We outlive the parent process, and must not keep the other end of a pipe of theirs open.
  ::close_range(STDERR_FILENO + 1, ~0U, 0);
  if (argc < 2) {
    return tarnwell::standin::supervise();
  }
  const std::string_view argument = argv[1];
  if (argument == "--help") {
    return tarnwell::diagnostics::print(usageText) ? 0 : 1;
  }
  return tarnwell::standin::fail("unknown argument " + std::string(argument) + "\n" + std::string(usageText), 2);
}
