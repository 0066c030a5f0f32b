#pragma once

#include <QtCore/QObject>
#include <QtCore/QString>
#include <QtDBus/QDBusVariant>

namespace tarnwell::host_qt {

class Theme;

/// What the desktop's settings portal says of light, dark and the accent colour, now and whenever it changes. Asked
/// without waiting, after the first turn of the event loop; without a bus or a portal the theme stays as it is.
class PortalSettings final : public QObject {
  Q_OBJECT

 public:
  explicit PortalSettings(Theme& theme);

  /// From the bus.
  Q_SLOT void settingChanged(const QString& space, const QString& key, const QDBusVariant& value);

 private:
  Q_SLOT void connectToPortal();
  void ask(const QString& key);
  void take(const QString& key, const QVariant& value);

  Theme& theme_;
};

}  // namespace tarnwell::host_qt
