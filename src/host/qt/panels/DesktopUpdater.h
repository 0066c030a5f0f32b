#pragma once

#include <array>
#include <filesystem>

#include "host/qt/panels/UpdatePanels.h"
#include "kit/turn/Subscription.h"
#include "updater/UpdateSource.h"
#include "updater/Updater.h"
#include "updater/package/DesktopInstaller.h"
#include "updater/package/ForkedWorker.h"
#include "updater/schedule/TimerAlarm.h"
#include "updater/transfer/CurlTransport.h"

namespace tarnwell::host_qt {

/// The updater on a Linux desktop, with everything that it works through.
class DesktopUpdater final : public kit::UpdaterController {
 public:
  /// Application and theme are borrowed and outlive the updater. `executable` is that of this process.
  DesktopUpdater(kit::Application& application, const Theme& theme, const kit::UpdaterControllerArguments& arguments,
                 const updater::UpdateSource& source, const std::filesystem::path& executable);

  kit::Updater& updater() override { return controller_.updater(); }

 private:
  updater::CurlTransport transport_;
  updater::ForkedWorker worker_;
  updater::DesktopInstaller installer_;
  updater::TimerAlarm alarm_;
  UpdatePanels panels_;
  // They end before the descriptors that they watch.
  std::array<kit::Subscription, 4> watches_;
  updater::UpdaterController controller_;
};

}  // namespace tarnwell::host_qt
