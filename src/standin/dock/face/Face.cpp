#include "standin/dock/face/Face.h"

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>
#include <xcb/xcb.h>

#include <QtWidgets/QApplication>
#include <array>
#include <cstdlib>
#include <cstring>
#include <memory>

#include "standin/dock/face/DockScene.h"
#include "standin/dock/face/WindowSurface.h"
#include "standin/dock/face/X11Surface.h"
#include "standin/store/Descriptor.h"

namespace tarnwell::standin {
namespace {

std::string variable(const char* name) {
  const char* value = std::getenv(name);  // NOLINT(concurrency-mt-unsafe): one thread
  return value == nullptr ? "" : value;
}

bool hasX11() {
  if (variable("DISPLAY").empty()) {
    return false;
  }
  xcb_connection_t* connection = xcb_connect(nullptr, nullptr);
  const bool works = xcb_connection_has_error(connection) == 0;
  xcb_disconnect(connection);
  return works;
}

bool hasWayland() {
  const std::string name = variable("WAYLAND_DISPLAY");
  const std::string path = name.starts_with('/') ? name : variable("XDG_RUNTIME_DIR") + "/" + name;
  sockaddr_un address{.sun_family = AF_UNIX, .sun_path = {}};
  if (name.empty() || path.size() >= sizeof(address.sun_path)) {
    return false;
  }
  path.copy(static_cast<char*>(address.sun_path), path.size());
  const Descriptor socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
  return socket && ::connect(socket.number(), reinterpret_cast<const sockaddr*>(&address), sizeof(address)) == 0;
}

// An X11 server that lives in a Wayland desktop cannot hear of the pointer over the desktop's own windows.
std::unique_ptr<Surface> makeSurface() {
  if (QGuiApplication::platformName() == QStringLiteral("xcb") && variable("WAYLAND_DISPLAY").empty()) {
    return std::make_unique<X11Surface>();
  }
  return std::make_unique<WindowSurface>();
}

}  // namespace

bool hasDisplay() { return hasX11() || hasWayland(); }

int showFace(int& argc, char** argv, const DockBehavior& behavior, const std::string& deskPath) {
  QCoreApplication::setApplicationName(QStringLiteral("Dock"));
  const QApplication application(argc, argv);
  QGuiApplication::setQuitOnLastWindowClosed(false);
  const std::unique_ptr<Surface> surface = makeSurface();
  const DockScene scene(*surface, behavior, deskPath);
  return QApplication::exec();
}

}  // namespace tarnwell::standin
