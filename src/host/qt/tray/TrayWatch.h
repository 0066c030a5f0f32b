#pragma once

#include <QtCore/QObject>
#include <QtDBus/QDBusConnection>
#include <memory>
#include <optional>

#include "host/qt/bus/BusNameOwner.h"
#include "host/qt/tray/XEmbedTray.h"
#include "kit/turn/Observers.h"

class QDBusPendingCallWatcher;

namespace tarnwell::host_qt {

class StartupBarrier;

/// Whether the desktop has a place for status icons, now and whenever that changes.
class TrayWatch final : public QObject {
  Q_OBJECT

 public:
  /// Asks at once; `first` is borrowed.
  TrayWatch(std::optional<QDBusConnection> bus, StartupBarrier& startup);
  ~TrayWatch() override;

  /// What a desktop has that shows status icons.
  enum class Tray {
    unknown,   ///< It has not answered yet.
    none,      ///
    watcher,   ///< Something takes icons in on the bus, but shows them nowhere.
    notifier,  ///< Icons on the bus are shown.
    xEmbed     ///< Icons are windows inside a panel's.
  };
  Tray tray() const;

  /// Whether icons are told on the bus.
  bool isOnBus() const { return tray() == Tray::watcher || tray() == Tray::notifier; }

  /// Told after each change, and each time another watcher takes over: it has no icon then.
  [[nodiscard]] kit::Subscription observe(kit::Action changed) { return observers_.add(std::move(changed)); }

  /// Makes the icon at `path` on the session bus known.
  static void announce(const QString& path);

 private:
  Q_SLOT void hostsChanged(const QDBusMessage& signal);
  enum class Answer { none, noWatcher, noHost, host };

  void listen();
  void ask();
  void take(const QDBusPendingCallWatcher& finished);
  void tell(Answer answer);

  std::optional<QDBusConnection> bus_;
  StartupBarrier& startup_;
  std::unique_ptr<XEmbedTray> xEmbed_;
  std::unique_ptr<BusNameOwner> owner_;
  kit::Observers<> observers_;
  Answer answer_ = Answer::none;
};

}  // namespace tarnwell::host_qt
