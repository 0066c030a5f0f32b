#include "host/qt/bus/Stranger.h"

#include <QtCore/QCoreApplication>
#include <QtDBus/QDBusConnectionInterface>
#include <QtDBus/QDBusPendingCall>

#include "fixtures/WaitFor.h"

namespace tarnwell::host_qt {
namespace {

QDBusConnection connectionOfStranger() {
  static int count = 0;
  return QDBusConnection::connectToBus(qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS"),
                                       QStringLiteral("stranger %1").arg(++count));
}

}  // namespace

Stranger::Stranger() : connection_(connectionOfStranger()) {}

Stranger::~Stranger() { QDBusConnection::disconnectFromBus(connection_.name()); }

void Stranger::emitSignal(const QString& path, const QString& interface, const QString& name,
                          const QVariantList& arguments) const {
  QDBusMessage signal = QDBusMessage::createSignal(path, interface, name);
  signal.setArguments(arguments);
  connection_.send(signal);
  // The bus takes messages of one sender in their order.
  connection_.call(QDBusMessage::createMethodCall("org.freedesktop.DBus", "/", "org.freedesktop.DBus", "GetId"));
}

QDBusMessage Stranger::call(const QString& path, const QString& interface, const QString& method,
                            const QVariantList& arguments) const {
  QDBusMessage message =
      QDBusMessage::createMethodCall(QDBusConnection::sessionBus().baseService(), path, interface, method);
  message.setArguments(arguments);
  const QDBusPendingCall pending = connection_.asyncCall(message);
  const bool isAnswered = fixtures::waitFor([&pending] {
    QCoreApplication::processEvents();
    return pending.isFinished();
  });
  return isAnswered ? pending.reply() : QDBusMessage::createError(QString(), "no answer");
}

}  // namespace tarnwell::host_qt
