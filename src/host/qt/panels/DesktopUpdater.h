#pragma once

#include <QtCore/QSocketNotifier>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>

#include "host/linux/updates/CurlTransport.h"
#include "host/linux/updates/DesktopInstaller.h"
#include "host/linux/updates/ForkedWorker.h"
#include "host/linux/updates/TimerAlarm.h"
#include "host/linux/updates/UpdateSource.h"
#include "host/linux/updates/Updater.h"
#include "host/qt/panels/UpdatePanels.h"

namespace tarnwell::host_qt {

/// The updater on a Linux desktop, with everything that it works through.
class DesktopUpdater final : public kit::UpdaterController {
 public:
  struct Settings {
    host_linux::updates::UpdateSource source = {};
    std::filesystem::path executable = {};
    std::shared_ptr<const kit::NumberFormat> numberFormat = {};
    std::function<void(const std::string& address)> openUrl = {};
    /// Runs what happens as one event of the application.
    std::function<void(kit::Action)> perform = {};
    /// Where the key equivalents go that the updater's window has no use for.
    std::function<void(const kit::KeyEvent&)> keyEquivalents = {};
  };

  /// The theme is borrowed and outlives the updater.
  DesktopUpdater(const Theme& theme, const kit::UpdaterControllerArguments& arguments, const Settings& settings);

  kit::Updater& updater() override { return controller_.updater(); }

 private:
  static void watch(QSocketNotifier& notifier, const std::function<void(kit::Action)>& perform, kit::Action dispatch);

  host_linux::updates::CurlTransport transport_;
  host_linux::updates::ForkedWorker worker_;
  host_linux::updates::DesktopInstaller installer_;
  host_linux::updates::TimerAlarm alarm_;
  UpdatePanels panels_;
  // They go before the descriptors that they watch.
  QSocketNotifier transportReady_;
  QSocketNotifier workerReady_;
  QSocketNotifier installerReady_;
  QSocketNotifier alarmReady_;
  host_linux::updates::UpdaterController controller_;
};

}  // namespace tarnwell::host_qt
