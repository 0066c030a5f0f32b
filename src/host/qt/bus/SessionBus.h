#pragma once

#include <QtCore/QByteArray>
#include <QtDBus/QDBusConnection>
#include <optional>

namespace tarnwell::host_qt {

/// The user's session bus, where there is one that answered when the toolkit started and that still runs.
std::optional<QDBusConnection> sessionBus();

/// The start of the toolkit, which connects to the session bus and would wait for one that is stuck for as long as that
/// is. While this lives the toolkit finds no bus but one that answers, and it never looks again.
class SessionBusStart {
 public:
  SessionBusStart();
  SessionBusStart(const SessionBusStart&) = delete;
  SessionBusStart& operator=(const SessionBusStart&) = delete;
  ~SessionBusStart();

 private:
  bool answers_;
  std::optional<QByteArray> address_;  // As it was given.
};

}  // namespace tarnwell::host_qt
