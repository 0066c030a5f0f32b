#pragma once

#include "updateclient/UserDriver.h"
#include "updateclient/engine/Alarm.h"
#include "updateclient/engine/Engine.h"
#include "updateclient/installation/PackageDesktop.h"

namespace tarnwell::updateclient {

/// What an updater works through. Borrowed; all of it outlives the updater.
struct UpdaterPorts {
  Engine& engine;
  UserDriver& driver;
  PackageDesktop& desktop;
  Alarm& alarm;
};

}  // namespace tarnwell::updateclient
