#pragma once

#include <QtCore/QSocketNotifier>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>

#include "host/qt/panels/UpdatePanels.h"
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
  struct Settings {
    updater::UpdateSource source = {};
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

  updater::CurlTransport transport_;
  updater::ForkedWorker worker_;
  updater::DesktopInstaller installer_;
  updater::TimerAlarm alarm_;
  UpdatePanels panels_;
  // They go before the descriptors that they watch.
  QSocketNotifier transportReady_;
  QSocketNotifier workerReady_;
  QSocketNotifier installerReady_;
  QSocketNotifier alarmReady_;
  updater::UpdaterController controller_;
};

}  // namespace tarnwell::host_qt
