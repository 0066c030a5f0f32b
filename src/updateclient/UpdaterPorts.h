#pragma once

#include "updateclient/Alarm.h"
#include "updateclient/Engine.h"
#include "updateclient/PackageDesktop.h"
#include "updateclient/UserDriver.h"

namespace tarnwell::updateclient {

/// What an updater works through. Borrowed; all of it outlives the updater.
struct UpdaterPorts {
  Engine& engine;
  UserDriver& driver;
  PackageDesktop& desktop;
  Alarm& alarm;
};

}  // namespace tarnwell::updateclient
