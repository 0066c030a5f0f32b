#pragma once

#include <filesystem>

#include "host/linux/PackageOpener.h"
#include "updateclient/FeedUpdater.h"
#include "updateclient/engine/EngineProcess.h"
#include "updateclient/engine/TimerAlarm.h"
#include "updateclient/settings/UpdateSource.h"
#include "updatewindows/UpdateWindows.h"

namespace tarnwell::host_qt {

/// The updater on a Linux desktop, with everything that it works through.
class DesktopUpdater final : public kit::UpdaterController {
 public:
  /// The application is borrowed and outlives the updater. `executable` is that of this process.
  DesktopUpdater(kit::Application& application, const kit::UpdaterControllerArguments& arguments,
                 const updateclient::UpdateSource& source, const std::filesystem::path& executable);

  kit::Updater& updater() override { return controller_.updater(); }

 private:
  updatewindows::UpdateWindows windows_;
  updateclient::EngineProcess engine_;
  host_linux::PackageOpener opener_;
  updateclient::TimerAlarm alarm_;
  updateclient::UpdaterController controller_;
};

}  // namespace tarnwell::host_qt
