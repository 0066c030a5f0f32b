#pragma once

#include <QtCore/QObject>
#include <QtCore/QString>
#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusVariant>
#include <memory>
#include <optional>

#include "host/qt/bus/BusNameOwner.h"

namespace tarnwell::host_qt {

class StartupBarrier;
class Theme;

/// What the desktop's settings portal says of light, dark, contrast and the accent colour, now and whenever it changes.
/// Without a bus or a portal the theme stays as it is.
class PortalSettings final : public QObject {
  Q_OBJECT

 public:
  /// Asks at once, and each portal that comes later. Theme and barrier are borrowed.
  PortalSettings(std::optional<QDBusConnection> bus, Theme& theme, StartupBarrier& startup);

  /// From the bus.
  Q_SLOT void settingChanged(const QDBusMessage& signal);

 private:
  void ask(const QDBusConnection& bus, const QString& key, StartupBarrier& startup);
  void take(const QString& key, const QDBusVariant& wrapped);

  Theme& theme_;
  std::unique_ptr<BusNameOwner> owner_;
};

}  // namespace tarnwell::host_qt
