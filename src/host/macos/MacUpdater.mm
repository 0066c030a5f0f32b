#include "host/macos/MacUpdater.h"

#import <AppKit/AppKit.h>

#include "host/macos/look/Conversions.h"
#include "kit/application/Application.h"
#include "kit/application/Platform.h"

namespace tarnwell::host_macos {
namespace {

namespace fs = std::filesystem;

fs::path libraryFolder(const char* kind, kit::Application& application) {
  return fs::path(toString(NSHomeDirectory())) / "Library" / kind / application.platform().product().name;
}

updateclient::UpdaterConfiguration configurationOf(const updateclient::UpdateSource& source,
                                                   kit::Application& application) {
  updateclient::UpdaterConfiguration configuration = source.configuration;
  configuration.packageFolder = libraryFolder("Caches", application) / "updates";
  return configuration;
}

// Where a bundle has the programs that its own starts.
fs::path engineOf(const updateclient::UpdateSource& source, kit::Application& application) {
  const std::string name = application.platform().product().program + "-update";
  return source.engine.empty() ? fs::path(toString([[NSBundle mainBundle] bundlePath])) / "Contents/Helpers" / name
                               : source.engine;
}

}  // namespace

system::Result<void> MacUpdater::NoInstaller::open(const fs::path& /*file*/, Opened /*opened*/) {
  return system::Failure{"This system opens no packages."};
}

MacUpdater::MacUpdater(kit::Application& application, const kit::UpdaterControllerArguments& arguments,
                       const updateclient::UpdateSource& source)
    : windows_(application, source.configuration.shownVersion),
      engine_(engineOf(source, application), updateclient::watchOf(application)),
      alarm_(updateclient::watchOf(application)),
      controller_(arguments, configurationOf(source, application),
                  updateclient::UpdaterPreferences(libraryFolder("Application Support", application) / "updates"),
                  {.engine = engine_, .driver = windows_, .desktop = installer_, .alarm = alarm_}) {}

}  // namespace tarnwell::host_macos
