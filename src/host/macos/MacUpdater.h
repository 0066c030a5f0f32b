#pragma once

#include "updateclient/FeedUpdater.h"
#include "updateclient/engine/EngineProcess.h"
#include "updateclient/engine/TimerAlarm.h"
#include "updateclient/installation/PackageDesktop.h"
#include "updateclient/settings/UpdateSource.h"
#include "updatewindows/UpdateWindows.h"

namespace tarnwell::host_macos {

/// The updater on macOS, with everything that it works through.
class MacUpdater final : public kit::UpdaterController {
 public:
  /// The application is borrowed and outlives the updater.
  MacUpdater(kit::Application& application, const kit::UpdaterControllerArguments& arguments,
             const updateclient::UpdateSource& source);

  kit::Updater& updater() override { return controller_.updater(); }

 private:
  /// There is no kind of package that macOS would be given.
  class NoInstaller final : public updateclient::PackageDesktop {
   public:
    system::Result<void> open(const std::filesystem::path& file, Opened opened) override;
    void stopWaiting() override {}
  };

  updatewindows::UpdateWindows windows_;
  updateclient::EngineProcess engine_;
  NoInstaller installer_;
  updateclient::TimerAlarm alarm_;
  updateclient::UpdaterController controller_;
};

}  // namespace tarnwell::host_macos
