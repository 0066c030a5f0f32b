#pragma once

#include "updater/UserDriver.h"
#include "updater/package/Installer.h"
#include "updater/package/Worker.h"
#include "updater/schedule/Alarm.h"
#include "updater/transfer/Transport.h"

namespace tarnwell::updater {

/// What an updater works through. Borrowed; all of it outlives the updater.
struct UpdaterPorts {
  Transport& transport;
  UserDriver& driver;
  Installer& installer;
  Alarm& alarm;
  Worker& worker;
};

}  // namespace tarnwell::updater
