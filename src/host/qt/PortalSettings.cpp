#include "host/qt/PortalSettings.h"

#include <QtDBus/QDBusArgument>
#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusMetaType>
#include <QtDBus/QDBusPendingCallWatcher>
#include <QtDBus/QDBusPendingReply>

#include "host/qt/FirstAnswers.h"
#include "host/qt/SessionBus.h"
#include "host/qt/Theme.h"

namespace tarnwell::host_qt {
namespace {

const QString service = QStringLiteral("org.freedesktop.portal.Desktop");
const QString path = QStringLiteral("/org/freedesktop/portal/desktop");
const QString interface = QStringLiteral("org.freedesktop.portal.Settings");
const QString appearance = QStringLiteral("org.freedesktop.appearance");
const QString colorSchemeKey = QStringLiteral("color-scheme");
const QString accentKey = QStringLiteral("accent-color");

// The portal wraps its answers once or twice, depending on its version.
QVariant unwrapped(QVariant value) {
  while (value.canConvert<QDBusVariant>()) {
    value = value.value<QDBusVariant>().variant();
  }
  return value;
}

std::optional<ColorScheme> schemeOf(uint number) {
  constexpr uint prefersDark = 1;
  constexpr uint prefersLight = 2;
  if (number == prefersDark) {
    return ColorScheme::dark;
  }
  return number == prefersLight ? std::optional(ColorScheme::light) : std::nullopt;
}

// A colour outside of the range says that there is none.
std::optional<QColor> accentOf(const QVariant& value) {
  if (!value.canConvert<QDBusArgument>()) {
    return std::nullopt;
  }
  const auto argument = value.value<QDBusArgument>();
  double red = -1;
  double green = -1;
  double blue = -1;
  argument.beginStructure();
  argument >> red >> green >> blue;
  argument.endStructure();
  const auto isChannel = [](double channel) { return channel >= 0 && channel <= 1; };
  if (!isChannel(red) || !isChannel(green) || !isChannel(blue)) {
    return std::nullopt;
  }
  return QColor::fromRgbF(static_cast<float>(red), static_cast<float>(green), static_cast<float>(blue));
}

}  // namespace

PortalSettings::PortalSettings(Theme& theme, FirstAnswers& first) : theme_(theme) {
  auto bus = sessionBus();
  if (!bus) {
    return;
  }
  // From whatever sender: naming one would ask the bus who that is, and wait for the answer.
  // The bus library knows its own types only once it has been asked for one; until then no slot fits.
  QDBusMetaType::typeToSignature(QMetaType::fromType<QDBusVariant>());
  bus->connect(QString(), path, interface, QStringLiteral("SettingChanged"), this,
               SLOT(settingChanged(QString, QString, QDBusVariant)));
  ask(colorSchemeKey, first);
  ask(accentKey, first);
}

void PortalSettings::settingChanged(const QString& space, const QString& key, const QDBusVariant& value) {
  if (space == appearance) {
    take(key, unwrapped(value.variant()));
  }
}

void PortalSettings::ask(const QString& key, FirstAnswers& first) {
  QDBusMessage message = QDBusMessage::createMethodCall(service, path, interface, QStringLiteral("Read"));
  message.setArguments({appearance, key});
  auto* answer = new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(message), this);
  connect(answer, &QDBusPendingCallWatcher::finished, this, [this, key](QDBusPendingCallWatcher* finished) {
    const QDBusPendingReply<QDBusVariant> reply = *finished;
    if (reply.isValid()) {
      take(key, unwrapped(reply.value().variant()));
    }
    finished->deleteLater();
  });
  first.await(*answer);
}

void PortalSettings::take(const QString& key, const QVariant& value) {
  if (key == colorSchemeKey) {
    theme_.setColorScheme(schemeOf(value.toUInt()));
  } else if (key == accentKey) {
    theme_.setAccent(accentOf(value));
  }
}

}  // namespace tarnwell::host_qt
