/// Shows the Dock of which it is told on its standard input, and then the next one; its windows need not come and go as
/// often as the Dock is ended. It has another name, so that killall leaves it alone.

#include <string>

#include "diagnostics/Console.h"
#include "diagnostics/StandardStreams.h"
#include "standin/dock/ui/DockUi.h"
#include "standin/store/SystemRoot.h"

namespace tarnwell::standin {
namespace {

int run(int argc, char** argv) {
  diagnostics::prepareStandardStreams();
  const auto root = systemRoot();
  if (!root) {
    diagnostics::printErrorLine("dock-ui: " + root.error().message);
    return 1;
  }
  return showUi(argc, argv, *root + "/Library/Application Support/Dock/desk");
}

}  // namespace
}  // namespace tarnwell::standin

int main(int argc, char** argv) { return tarnwell::standin::run(argc, argv); }
