/// The Dock once it has said what it has read: the same process, which goes on as a program with a toolkit. It has the
/// same name, so that killall finds it. Its argument is what `Dock --list` prints.

#include <optional>
#include <string>

#include "standin/dock/DockBehavior.h"
#include "standin/dock/face/Face.h"
#include "standin/store/StandardStreams.h"
#include "standin/store/SystemRoot.h"

namespace tarnwell::standin {
namespace {

int run(int argc, char** argv) {
  prepareStandardStreams();
  const std::optional<std::string> root = systemRoot();
  if (!root) {
    printError(std::string("Dock: ") + noRootMessage + "\n");
    return 1;
  }
  const DockBehavior behavior = listedBehavior(argc > 1 ? argv[1] : "");
  return showFace(argc, argv, behavior, *root + "/Library/Application Support/Dock/desk");
}

}  // namespace
}  // namespace tarnwell::standin

int main(int argc, char** argv) { return tarnwell::standin::run(argc, argv); }
