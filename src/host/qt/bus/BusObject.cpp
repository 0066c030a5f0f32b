#include "host/qt/bus/BusObject.h"

#include <QtDBus/QDBusMessage>
#include <utility>

#include "host/qt/bus/BusTypes.h"

namespace tarnwell::host_qt {
namespace {

// The toolkit's own affair, with every object.
bool isForToolkit(const QDBusMessage& message) {
  return message.interface() == QLatin1String("org.freedesktop.DBus.Introspectable") ||
         message.interface() == QLatin1String("org.freedesktop.DBus.Peer") ||
         (message.interface().isEmpty() && message.member() == QLatin1String("Introspect"));
}

QDBusMessage replyTo(const QDBusMessage& message, const BusInterface::Answer& answer) {
  const auto* error = std::get_if<BusError>(&answer);
  return error != nullptr ? message.createErrorReply(error->name, error->text)
                          : message.createReply(std::get<QVariantList>(answer));
}

}  // namespace

BusObject::BusObject(QDBusConnection bus, QString path, const QString& interface)
    : bus_(std::move(bus)),
      path_(std::move(path)),
      interface_(interface),
      properties_(QStringLiteral("org.freedesktop.DBus.Properties")) {
  registerBusTypes();
  properties_.addMethod("Get", {"interface_name", "property_name", "value"}, bound(&BusObject::property));
  properties_.addMethod("GetAll", {"interface_name", "properties"}, bound(&BusObject::allProperties));
  properties_.addMethod("Set", {"interface_name", "property_name", "value"}, bound(&BusObject::setProperty));
  bus_.registerVirtualObject(path_, this);
}

BusObject::~BusObject() { bus_.unregisterObject(path_); }

bool BusObject::handleMessage(const QDBusMessage& message, const QDBusConnection& connection) noexcept {
  if (isForToolkit(message)) {
    return false;
  }
  const BusInterface* called = interfaceFor(message);
  const BusInterface::Answer answer = called != nullptr ? called->call(message.member(), message.arguments())
                                                        : BusError::unknownInterface(message.interface());
  if (message.isReplyRequired()) {
    connection.send(replyTo(message, answer));
  }
  return true;
}

QString BusObject::introspect(const QString& path) const {
  return path == path_ ? interface_.description() + properties_.description() : QString();
}

void BusObject::emitSignal(const QString& name, const QVariantList& arguments) const {
  QDBusMessage signal = QDBusMessage::createSignal(path_, interface_.name(), name);
  signal.setArguments(arguments);
  bus_.send(signal);
}

BusReply<QDBusVariant> BusObject::property(const QString& interface, const QString& name) {
  if (!isOurs(interface)) {
    return BusError::unknownInterface(interface);
  }
  if (const auto value = interface_.property(name)) {
    return std::tuple(QDBusVariant(*value));
  }
  return BusError::unknownProperty(name);
}

BusReply<QVariantMap> BusObject::allProperties(const QString& interface) {
  if (!isOurs(interface)) {
    return BusError::unknownInterface(interface);
  }
  return std::tuple(interface_.properties());
}

BusReply<> BusObject::setProperty(const QString& interface, const QString& name, const QDBusVariant& /*value*/) {
  if (!isOurs(interface)) {
    return BusError::unknownInterface(interface);
  }
  return interface_.property(name) ? BusError::propertyReadOnly(name) : BusError::unknownProperty(name);
}

// A caller may leave the interface out.
const BusInterface* BusObject::interfaceFor(const QDBusMessage& message) const {
  const QString name = message.interface();
  if (name == properties_.name() || (name.isEmpty() && properties_.hasMethod(message.member()))) {
    return &properties_;
  }
  return isOurs(name) ? &interface_ : nullptr;
}

bool BusObject::isOurs(const QString& interface) const { return interface.isEmpty() || interface == interface_.name(); }

}  // namespace tarnwell::host_qt
