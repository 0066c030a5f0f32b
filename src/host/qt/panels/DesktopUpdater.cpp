#include "host/qt/panels/DesktopUpdater.h"

#include "diagnostics/Console.h"
#include "kit/application/Application.h"
#include "kit/application/Platform.h"
#include "updater/package/PackageFolder.h"
#include "updater/package/RunningAppImage.h"

namespace tarnwell::host_qt {
namespace {

/// Empty where there is none; a download then fails, and says so.
std::filesystem::path emptiedPackageFolder() {
  const auto folder = updater::packageFolder();
  if (!folder) {
    diagnostics::reportError(folder.error().message);
    return {};
  }
  const auto& path = *folder;
  updater::removePackages(path, std::chrono::system_clock::time_point::max());
  return path;
}

updater::UpdaterConfiguration configurationOf(const updater::UpdateSource& source) {
  updater::UpdaterConfiguration configuration = source.configuration;
  configuration.packageFolder = emptiedPackageFolder();
  return configuration;
}

/// Dispatches what a port's descriptor announces, as one event of the application.
template <class Port>
kit::Subscription watch(kit::Application& application, Port& port) {
  return application.platform().watch(
      port.descriptor(), [&application, &port] { application.turn().perform([&port] { port.dispatch(); }); });
}

}  // namespace

DesktopUpdater::DesktopUpdater(kit::Application& application, const Theme& theme,
                               const kit::UpdaterControllerArguments& arguments, const updater::UpdateSource& source,
                               const std::filesystem::path& executable)
    : transport_(source.transport),
      installer_({.appImage = updater::runningAppImage(executable)}, worker_),
      panels_(application, theme, source.configuration.shownVersion),
      watches_{watch(application, transport_), watch(application, worker_), watch(application, installer_),
               watch(application, alarm_)},
      controller_(
          arguments, configurationOf(source), updater::UpdaterPreferences::ofUser(),
          {.transport = transport_, .driver = panels_, .installer = installer_, .alarm = alarm_, .worker = worker_}) {}

}  // namespace tarnwell::host_qt
