#include "host/qt/bus/BusNameOwner.h"

#include <QtDBus/QDBusPendingCallWatcher>
#include <QtDBus/QDBusServiceWatcher>
#include <utility>

#include "host/qt/bus/BusValue.h"

namespace tarnwell::host_qt {

BusNameOwner::BusNameOwner(const QDBusConnection& bus, const QString& name, kit::Action changed) {
  auto* watcher = new QDBusServiceWatcher(name, bus, QDBusServiceWatcher::WatchForOwnerChange, this);
  connect(watcher, &QDBusServiceWatcher::serviceOwnerChanged, this,
          [this, changed = std::move(changed)](const QString& /*name*/, const QString& /*from*/,
                                               const QString& owner) noexcept {
            owner_ = owner;
            if (changed) {
              changed();
            }
          });
  ask(bus, name);
}

void BusNameOwner::ask(const QDBusConnection& bus, const QString& name) {
  const QString service = QStringLiteral("org.freedesktop.DBus");
  QDBusMessage message =
      QDBusMessage::createMethodCall(service, "/org/freedesktop/DBus", service, QStringLiteral("GetNameOwner"));
  message.setArguments({name});
  auto* answer = new QDBusPendingCallWatcher(bus.asyncCall(message), this);
  connect(answer, &QDBusPendingCallWatcher::finished, this, [this](QDBusPendingCallWatcher* finished) noexcept {
    if (const auto reply = busArguments<QString>(finished->reply())) {
      owner_ = std::get<QString>(*reply);
    }
    finished->deleteLater();
  });
}

}  // namespace tarnwell::host_qt
