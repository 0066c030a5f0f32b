#include "host/qt/SessionBus.h"

#include <QtCore/QFile>
#include <QtCore/QStandardPaths>

namespace tarnwell::host_qt {
namespace {

bool sessionBusExists() {
  return qEnvironmentVariableIsSet("DBUS_SESSION_BUS_ADDRESS") ||
         QFile::exists(QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation) + "/bus");
}

}  // namespace

std::optional<QDBusConnection> sessionBus() {
  if (!sessionBusExists()) {
    return std::nullopt;
  }
  const QDBusConnection bus = QDBusConnection::sessionBus();
  return bus.isConnected() ? std::optional(bus) : std::nullopt;
}

}  // namespace tarnwell::host_qt
