#include "standin/dock/face/Face.h"

#include <unistd.h>

#include <QtWidgets/QApplication>
#include <cstdlib>
#include <memory>
#include <string>

#include "standin/dock/face/DockScene.h"
#include "standin/dock/face/WindowSurface.h"
#include "standin/dock/face/X11Surface.h"
#include "standin/store/StandardStreams.h"

namespace tarnwell::standin {
namespace {

std::string variable(const char* name) {
  const char* value = std::getenv(name);  // NOLINT(concurrency-mt-unsafe): one thread
  return value == nullptr ? "" : value;
}

// Without a platform the toolkit would have the process abort, and it would be started again and again.
void surviveFatal(QtMsgType type, const QMessageLogContext& /*context*/, const QString& text) {
  printError("Dock: " + text.toStdString() + "\n");
  if (type == QtFatalMsg) {
    for (;;) {
      ::pause();
    }
  }
}

// An X11 server that lives in a Wayland desktop cannot hear of the pointer over the desktop's own windows.
std::unique_ptr<Surface> makeSurface() {
  if (QGuiApplication::platformName() == QStringLiteral("xcb") && variable("WAYLAND_DISPLAY").empty()) {
    if (auto surface = X11Surface::open()) {
      return surface;
    }
  }
  return std::make_unique<WindowSurface>();
}

}  // namespace

int showFace(int& argc, char** argv, const DockBehavior& behavior, const std::string& deskPath) {
  QCoreApplication::setApplicationName(QStringLiteral("Dock"));
  const QtMessageHandler usual = qInstallMessageHandler(surviveFatal);
  const QApplication application(argc, argv);
  qInstallMessageHandler(usual);
  QGuiApplication::setQuitOnLastWindowClosed(false);
  const std::unique_ptr<Surface> surface = makeSurface();
  const DockScene scene(*surface, behavior, deskPath);
  return QApplication::exec();
}

}  // namespace tarnwell::standin
