/// A stand-in for the `killall` tool of macOS: ends the processes of a name, of those that belong to the same played
/// system, which are those with the same MACOS_ROOT. So it never ends a program of the same name that has nothing to do
/// with it. It differs from the original in these points:
///   - It sends no signal but SIGTERM, and has none of the original's options.
///   - Several that run at once take turns, and each meets a Dock that was not yet asked to end: where each of many
///     settings restarts the Dock, the Dock is restarted as many times.

#include <string>
#include <string_view>
#include <vector>

#include "diagnostics/Console.h"
#include "diagnostics/StandardStreams.h"
#include "standin/killall/KillAll.h"
#include "standin/store/SystemRoot.h"

namespace tarnwell::standin {
namespace {

constexpr std::string_view usageText = R"(Usage: killall NAME ... | --help

Asks every process of a name that has the same MACOS_ROOT to end. MACOS_ROOT is ~/.local/share/macos-standin unless set.
)";

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
