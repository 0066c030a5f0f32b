#pragma once

#include <QtDBus/QDBusConnection>
#include <optional>

namespace tarnwell::host_qt {

/// The user's session bus, where there is one. Without an address the bus library would start a bus of its own, and
/// wait for that; so it is not asked then.
std::optional<QDBusConnection> sessionBus();

}  // namespace tarnwell::host_qt
