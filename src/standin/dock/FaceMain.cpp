/// The Dock once it has said what it has read: the same process, which goes on as a program with a toolkit. It has the
/// same name, so that killall finds it.

#include <unistd.h>

#include <optional>
#include <string>

#include "standin/dock/DockBehavior.h"
#include "standin/dock/face/Face.h"
#include "standin/store/Domain.h"
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
  if (!hasDisplay()) {
    for (;;) {
      ::pause();
    }
  }
  // Whoever has changed the settings since the log was written is about to kill this process.
  const StoredPreferences stored = loadPreferences(Domain::resolve("com.apple.dock", *root)->path);
  return showFace(argc, argv, dockBehavior(stored), *root + "/Library/Application Support/Dock/desk");
}

}  // namespace
}  // namespace tarnwell::standin

int main(int argc, char** argv) { return tarnwell::standin::run(argc, argv); }
