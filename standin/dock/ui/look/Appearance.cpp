#include "standin/dock/ui/look/Appearance.h"

#include <QtCore/QFile>
#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusMessage>
#include <QtDBus/QDBusMetaType>
#include <QtDBus/QDBusPendingCallWatcher>
#include <QtDBus/QDBusPendingReply>
#include <utility>

namespace tarnwell::standin {
namespace {

const QString service = QStringLiteral("org.freedesktop.portal.Desktop");
const QString portalPath = QStringLiteral("/org/freedesktop/portal/desktop");
const QString interface = QStringLiteral("org.freedesktop.portal.Settings");
const QString appearance = QStringLiteral("org.freedesktop.appearance");
const QString colorScheme = QStringLiteral("color-scheme");

// Without one, the bus library would start one of its own.
bool hasBus() {
  return qEnvironmentVariableIsSet("DBUS_SESSION_BUS_ADDRESS") ||
         QFile::exists(qEnvironmentVariable("XDG_RUNTIME_DIR") + QStringLiteral("/bus"));
}

}  // namespace

Appearance::Appearance(std::function<void(Scheme)> changed) : changed_(std::move(changed)) {
  if (!hasBus()) {
    return;
  }
  QDBusConnection bus = QDBusConnection::sessionBus();
  if (!bus.isConnected()) {
    return;
  }
  isAsked_ = true;
  // The bus library knows the type only once it has been asked for it; until then no slot fits.
  QDBusMetaType::typeToSignature(QMetaType::fromType<QDBusVariant>());
  bus.connect(QString(), portalPath, interface, QStringLiteral("SettingChanged"), this,
              SLOT(settingChanged(QString, QString, QDBusVariant)));
  ask();
}

void Appearance::settingChanged(const QString& space, const QString& key, const QDBusVariant& value) {
  if (space == appearance && key == colorScheme) {
    take(value.variant());
  }
}

void Appearance::ask() {
  QDBusMessage message = QDBusMessage::createMethodCall(service, portalPath, interface, QStringLiteral("Read"));
  message.setArguments({appearance, colorScheme});
  auto* answer = new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(message), this);
  connect(answer, &QDBusPendingCallWatcher::finished, this, [this](QDBusPendingCallWatcher* finished) {
    const QDBusPendingReply<QDBusVariant> reply = *finished;
    take(reply.isValid() ? reply.value().variant() : QVariant());
    finished->deleteLater();
  });
}

// The portal wraps its answers once or twice, depending on its version.
void Appearance::take(const QVariant& value) {
  constexpr unsigned prefersDark = 1;
  QVariant bare = value;
  while (bare.canConvert<QDBusVariant>()) {
    bare = bare.value<QDBusVariant>().variant();
  }
  changed_(bare.toUInt() == prefersDark ? Scheme::dark : Scheme::light);
}

}  // namespace tarnwell::standin
