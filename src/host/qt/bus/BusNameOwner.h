#pragma once

#include <QtCore/QObject>
#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusMessage>

#include "kit/turn/Action.h"

namespace tarnwell::host_qt {

/// The program that has a name on the bus, now and whenever that changes. Asked without waiting: where it was asked for
/// before something else, it is known by the time that the other answer comes.
class BusNameOwner final : public QObject {
 public:
  /// `changed` is run after each change, and not for the owner that is there already.
  BusNameOwner(const QDBusConnection& bus, const QString& name, kit::Action changed = {});

  bool exists() const { return !owner_.isEmpty(); }

  /// Whether the message is the owner's. The bus lets any peer send a signal of any interface.
  bool hasSent(const QDBusMessage& message) const { return exists() && message.service() == owner_; }

 private:
  void ask(const QDBusConnection& bus, const QString& name);

  QString owner_;
};

}  // namespace tarnwell::host_qt
