#include "host/qt/bus/SessionBus.h"

#include "host/linux/start/SessionBusAnswers.h"

namespace tarnwell::host_qt {
namespace {

constexpr const char* addressVariable = "DBUS_SESSION_BUS_ADDRESS";

}  // namespace

std::optional<QDBusConnection> sessionBus() {
  const QDBusConnection bus = QDBusConnection::sessionBus();
  return bus.isConnected() ? std::optional(bus) : std::nullopt;
}

SessionBusStart::SessionBusStart() : answers_(host_linux::sessionBusAnswers()) {
  if (qEnvironmentVariableIsSet(addressVariable)) {
    address_ = qgetenv(addressVariable);
  }
  if (!answers_) {
    // Without an address the bus library would start a bus of its own, and wait for that.
    qputenv(addressVariable, "disabled:");
  }
}

SessionBusStart::~SessionBusStart() {
  if (answers_) {
    return;
  }
  // The toolkit keeps what it finds the first time. Those that we start look for themselves.
  QDBusConnection::sessionBus();
  if (address_) {
    qputenv(addressVariable, *address_);
  } else {
    qunsetenv(addressVariable);
  }
}

}  // namespace tarnwell::host_qt
