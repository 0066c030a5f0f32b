#include "host/qt/BusObject.h"

#include <QtDBus/QDBusMessage>
#include <QtDBus/QDBusVariant>
#include <utility>

namespace tarnwell::host_qt {
namespace {

const QString propertiesInterface = QStringLiteral("org.freedesktop.DBus.Properties");

}  // namespace

BusObject::BusObject(QDBusConnection bus, QString path, QString interface, QString description)
    : bus_(std::move(bus)),
      path_(std::move(path)),
      interface_(std::move(interface)),
      description_(std::move(description)) {
  bus_.registerVirtualObject(path_, this);
}

BusObject::~BusObject() { bus_.unregisterObject(path_); }

bool BusObject::handleMessage(const QDBusMessage& message, const QDBusConnection& connection) noexcept {
  const std::optional<QVariantList> given = answer(message);
  if (!given) {
    return false;
  }
  if (message.isReplyRequired()) {
    connection.send(message.createReply(*given));
  }
  return true;
}

QString BusObject::introspect(const QString& path) const { return path == path_ ? description_ : QString(); }

void BusObject::emitSignal(const QString& name, const QVariantList& arguments) const {
  QDBusMessage signal = QDBusMessage::createSignal(path_, interface_, name);
  signal.setArguments(arguments);
  bus_.send(signal);
}

std::optional<QVariantList> BusObject::answer(const QDBusMessage& message) {
  // A caller may leave the interface out.
  if (message.interface() == interface_ || message.interface().isEmpty()) {
    return call(message.member(), message.arguments());
  }
  if (message.interface() != propertiesInterface || message.arguments().value(0).toString() != interface_) {
    return std::nullopt;
  }
  if (message.member() == QLatin1String("GetAll")) {
    return QVariantList{properties()};
  }
  return message.member() == QLatin1String("Get") ? property(message.arguments().value(1).toString()) : std::nullopt;
}

std::optional<QVariantList> BusObject::property(const QString& name) const {
  const QVariantMap all = properties();
  const auto found = all.constFind(name);
  return found != all.constEnd() ? std::optional(QVariantList{QVariant::fromValue(QDBusVariant(*found))})
                                 : std::nullopt;
}

}  // namespace tarnwell::host_qt
