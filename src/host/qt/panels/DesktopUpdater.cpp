#include "host/qt/panels/DesktopUpdater.h"

#include <utility>

#include "diagnostics/Console.h"
#include "updater/package/PackageFolder.h"
#include "updater/package/RunningAppImage.h"

namespace tarnwell::host_qt {
namespace {

/// Empty where there is none; a download then fails, and says so.
std::filesystem::path emptiedPackageFolder() {
  const auto folder = updater::packageFolder();
  if (!folder) {
    diagnostics::printErrorLine("tarnwell: " + folder.error().message);
    return {};
  }
  const auto& path = *folder;
  updater::removePackages(path, std::chrono::system_clock::time_point::max());
  return path;
}

updater::UpdaterConfiguration configurationOf(const DesktopUpdater::Settings& settings) {
  updater::UpdaterConfiguration configuration = settings.source.configuration;
  configuration.packageFolder = emptiedPackageFolder();
  return configuration;
}

UpdatePanels::Settings panelSettings(const DesktopUpdater::Settings& settings) {
  return {.shownVersion = settings.source.configuration.shownVersion,
          .numberFormat = settings.numberFormat,
          .openUrl = settings.openUrl,
          .perform = settings.perform,
          .keyEquivalents = settings.keyEquivalents};
}

}  // namespace

DesktopUpdater::DesktopUpdater(const Theme& theme, const kit::UpdaterControllerArguments& arguments,
                               const Settings& settings)
    : transport_(settings.source.transport),
      installer_({.appImage = updater::runningAppImage(settings.executable)}, worker_),
      panels_(theme, panelSettings(settings)),
      transportReady_(transport_.descriptor(), QSocketNotifier::Read),
      workerReady_(worker_.descriptor(), QSocketNotifier::Read),
      installerReady_(installer_.descriptor(), QSocketNotifier::Read),
      alarmReady_(alarm_.descriptor(), QSocketNotifier::Read),
      controller_(arguments, configurationOf(settings), updater::UpdaterPreferences::ofUser(),
                  {.transport = transport_,
                   .driver = panels_,
                   .installer = installer_,
                   .alarm = alarm_,
                   .worker = worker_,
                   .openUrl = settings.openUrl}) {
  watch(transportReady_, settings.perform, [this] { transport_.dispatch(); });
  watch(workerReady_, settings.perform, [this] { worker_.dispatch(); });
  watch(installerReady_, settings.perform, [this] { installer_.dispatch(); });
  watch(alarmReady_, settings.perform, [this] { alarm_.dispatch(); });
}

void DesktopUpdater::watch(QSocketNotifier& notifier, const std::function<void(kit::Action)>& perform,
                           kit::Action dispatch) {
  QObject::connect(&notifier, &QSocketNotifier::activated, &notifier,
                   [perform, dispatch = std::move(dispatch)]() noexcept { perform(dispatch); });
}

}  // namespace tarnwell::host_qt
