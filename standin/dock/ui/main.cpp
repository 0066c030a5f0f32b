/// Shows the Dock of which it is told on its standard input, and then the next one; its windows need not come and go as
/// often as the Dock is ended. It has another name, so that killall leaves it alone.

#include <unistd.h>

#include <QtWidgets/QApplication>
#include <cstdlib>
#include <memory>

#include "diagnostics/Console.h"
#include "diagnostics/StandardStreams.h"
#include "standin/dock/ui/DockUi.h"
#include "standin/dock/ui/WindowSurface.h"
#include "standin/dock/ui/X11Surface.h"
#include "standin/store/SystemRoot.h"

namespace tarnwell::standin {
namespace {

// Without a platform the toolkit would have the process abort, and it would be started again and again. So it
// shows nothing until its input ends.
void surviveFatal(QtMsgType type, const QMessageLogContext& /*context*/, const QString& text) {
  diagnostics::printErrorLine("Dock: " + text.toStdString());
  if (type == QtFatalMsg) {
    for (char record = 0; ::read(STDIN_FILENO, &record, 1) > 0;) {
    }
    ::_exit(EXIT_FAILURE);
  }
}

// An X11 server that lives in a Wayland desktop cannot hear of the pointer over the desktop's own windows.
std::unique_ptr<Surface> makeSurface() {
  if (QGuiApplication::platformName() == QStringLiteral("xcb") && qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY")) {
    if (auto surface = X11Surface::open()) {
      return surface;
    }
  }
  return std::make_unique<WindowSurface>();
}

int run(int argc, char** argv) {
  diagnostics::prepareStandardStreams();
  const auto root = systemRoot();
  if (!root) {
    diagnostics::printErrorLine("dock-ui: " + root.error().message);
    return 1;
  }
  QCoreApplication::setApplicationName(QStringLiteral("Dock"));
  const QtMessageHandler usual = qInstallMessageHandler(surviveFatal);
  const QApplication application(argc, argv);
  qInstallMessageHandler(usual);
  QGuiApplication::setQuitOnLastWindowClosed(false);
  const DockUi ui(STDIN_FILENO, makeSurface(), *root + "/Library/Application Support/Dock/desk");
  return QApplication::exec();
}

}  // namespace
}  // namespace tarnwell::standin

int main(int argc, char** argv) { return tarnwell::standin::run(argc, argv); }
