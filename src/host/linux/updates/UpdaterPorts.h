#pragma once

#include <functional>
#include <string>

#include "host/linux/updates/Alarm.h"
#include "host/linux/updates/Installer.h"
#include "host/linux/updates/Transport.h"
#include "host/linux/updates/UserDriver.h"
#include "host/linux/updates/Worker.h"

namespace tarnwell::host_linux::updates {

/// What an updater works through. Borrowed; all of it outlives the updater.
struct UpdaterPorts {
  Transport& transport;
  UserDriver& driver;
  Installer& installer;
  Alarm& alarm;
  Worker& worker;
  /// Shows a web page in the browser.
  std::function<void(const std::string& address)> openUrl = {};
};

}  // namespace tarnwell::host_linux::updates
