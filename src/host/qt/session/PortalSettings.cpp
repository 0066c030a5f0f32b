#include "host/qt/session/PortalSettings.h"

#include <QtDBus/QDBusPendingCallWatcher>

#include "host/qt/bus/BusTypes.h"
#include "host/qt/bus/BusValue.h"
#include "host/qt/look/Theme.h"
#include "host/qt/session/StartupBarrier.h"

namespace tarnwell::host_qt {
namespace {

const QString service = QStringLiteral("org.freedesktop.portal.Desktop");
const QString portalPath = QStringLiteral("/org/freedesktop/portal/desktop");
const QString interface = QStringLiteral("org.freedesktop.portal.Settings");
const QString appearance = QStringLiteral("org.freedesktop.appearance");
const QString colorSchemeKey = QStringLiteral("color-scheme");
const QString accentKey = QStringLiteral("accent-color");
const QString contrastKey = QStringLiteral("contrast");

// The portal wraps its answers once or twice, depending on its version.
QVariant unwrapped(const QDBusVariant& wrapped) {
  return busValue<QDBusVariant>(wrapped.variant()).value_or(wrapped).variant();
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
std::optional<QColor> accentOf(const BusColor& color) {
  const auto isChannel = [](double channel) { return channel >= 0 && channel <= 1; };
  if (!isChannel(color.red) || !isChannel(color.green) || !isChannel(color.blue)) {
    return std::nullopt;
  }
  return QColor::fromRgbF(static_cast<float>(color.red), static_cast<float>(color.green),
                          static_cast<float>(color.blue));
}

}  // namespace

PortalSettings::PortalSettings(std::optional<QDBusConnection> bus, Theme& theme, StartupBarrier& startup)
    : theme_(theme) {
  if (!bus) {
    return;
  }
  registerBusTypes();
  const auto askAll = [this, bus = *bus, &startup] {
    for (const QString& key : {colorSchemeKey, accentKey, contrastKey}) {
      ask(bus, key, startup);
    }
  };
  // One that comes later tells of no change that there was before it.
  owner_ = std::make_unique<BusNameOwner>(*bus, service, [this, askAll] {
    if (owner_->exists()) {
      askAll();
    }
  });
  // From whatever sender: naming one would ask the bus who that is, and wait for the answer.
  bus->connect(QString(), portalPath, interface, QStringLiteral("SettingChanged"), this,
               SLOT(settingChanged(QDBusMessage)));
  askAll();
}

void PortalSettings::settingChanged(const QDBusMessage& signal) {
  const auto told = busArguments<QString, QString, QDBusVariant>(signal);
  if (told && owner_->hasSent(signal) && std::get<0>(*told) == appearance) {
    take(std::get<1>(*told), std::get<2>(*told));
  }
}

void PortalSettings::ask(const QDBusConnection& bus, const QString& key, StartupBarrier& startup) {
  QDBusMessage message = QDBusMessage::createMethodCall(service, portalPath, interface, QStringLiteral("Read"));
  message.setArguments({appearance, key});
  auto* answer = new QDBusPendingCallWatcher(bus.asyncCall(message), this);
  connect(answer, &QDBusPendingCallWatcher::finished, this, [this, key](QDBusPendingCallWatcher* finished) {
    if (const auto reply = busArguments<QDBusVariant>(finished->reply())) {
      take(key, std::get<QDBusVariant>(*reply));
    }
    finished->deleteLater();
  });
  startup.await(*answer);
}

void PortalSettings::take(const QString& key, const QDBusVariant& wrapped) {
  const QVariant value = unwrapped(wrapped);
  if (const auto number = busValue<uint>(value); number && key == colorSchemeKey) {
    theme_.setColorScheme(schemeOf(*number));
  } else if (number && key == contrastKey) {
    constexpr uint prefersHigh = 1;
    theme_.setContrastLevel(*number == prefersHigh ? ContrastLevel::high : ContrastLevel::normal);
  } else if (const auto color = busValue<BusColor>(value); color && key == accentKey) {
    theme_.setAccent(accentOf(*color));
  }
}

}  // namespace tarnwell::host_qt
