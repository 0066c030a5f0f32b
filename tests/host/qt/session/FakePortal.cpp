#include "host/qt/session/FakePortal.h"

#include <QtDBus/QDBusArgument>
#include <QtDBus/QDBusMessage>

namespace tarnwell::host_qt {
namespace {

constexpr const char* portalPath = "/org/freedesktop/portal/desktop";
constexpr const char* settingsInterface = "org.freedesktop.portal.Settings";
constexpr const char* appearance = "org.freedesktop.appearance";

}  // namespace

FakePortal::FakePortal(const std::string& busAddress)
    : connection_(QDBusConnection::connectToBus(QString::fromStdString(busAddress), "portal")) {
  connection_.registerVirtualObject(portalPath, this);
  connection_.registerService("org.freedesktop.portal.Desktop");
}

FakePortal::~FakePortal() { QDBusConnection::disconnectFromBus(connection_.name()); }

QVariant FakePortal::color(double red, double green, double blue) {
  QDBusArgument argument;
  argument.beginStructure();
  argument << red << green << blue;
  argument.endStructure();
  return QVariant::fromValue(argument);
}

void FakePortal::change(const std::string& key, const QVariant& value) {
  set(key, value);
  tell({appearance, QString::fromStdString(key), QVariant::fromValue(QDBusVariant(value))});
}

void FakePortal::tell(const QVariantList& arguments) const {
  QDBusMessage signal = QDBusMessage::createSignal(portalPath, settingsInterface, "SettingChanged");
  signal.setArguments(arguments);
  connection_.send(signal);
}

QString FakePortal::introspect(const QString& /*path*/) const { return {}; }

bool FakePortal::handleMessage(const QDBusMessage& message, const QDBusConnection& connection) {
  if (message.interface() != settingsInterface || message.member() != "Read") {
    return false;
  }
  ++questions_;
  if (silent_) {
    message.setDelayedReply(true);
    return true;
  }
  if (answer_) {
    return connection.send(message.createReply(*answer_));
  }
  const auto found = settings_.find(message.arguments().at(1).toString().toStdString());
  if (found == settings_.end()) {
    return connection.send(message.createErrorReply("org.freedesktop.portal.Error.NotFound", "not set"));
  }
  // The portal's own answer has one wrapping too many.
  const QVariant wrapped = QVariant::fromValue(QDBusVariant(found->second));
  return connection.send(message.createReply(QVariant::fromValue(QDBusVariant(wrapped))));
}

}  // namespace tarnwell::host_qt
