#include "host/qt/platform/DesktopUpdater.h"

#include "diagnostics/Console.h"
#include "host/linux/start/RunningAppImage.h"
#include "installation/BaseFolders.h"
#include "installation/Programs.h"
#include "kit/application/Application.h"
#include "kit/application/Platform.h"

namespace tarnwell::host_qt {
namespace {

namespace fs = std::filesystem;

/// Empty where there is none; a download then fails, and says so.
fs::path packageFolder(const std::string& program) {
  const fs::path base = installation::cacheFolder();
  if (base.empty()) {
    diagnostics::reportError("neither XDG_CACHE_HOME nor HOME names a folder for downloads");
    return {};
  }
  return base / program / "updates";
}

// A user without any folder is told so when something is to be kept: no other user's folder takes it.
fs::path preferencesFile(const std::string& program) {
  const fs::path base = installation::configurationFolder();
  return (base.empty() ? "/.config" : base) / program / "updates";
}

updateclient::UpdaterConfiguration configurationOf(const updateclient::UpdateSource& source, const std::string& program,
                                                   const fs::path& executable) {
  updateclient::UpdaterConfiguration configuration = source.configuration;
  configuration.packageFolder = packageFolder(program);
  configuration.program = host_linux::runningAppImage(executable).value_or(fs::path());
  return configuration;
}

fs::path engineOf(const updateclient::UpdateSource& source, const std::string& program, const fs::path& executable) {
  if (!source.engine.empty()) {
    return source.engine;
  }
  const std::string name = program + "-update";
  const auto found = installation::libexecProgram(executable.parent_path(), program, name);
  if (!found) {
    diagnostics::reportError(found.error().message);
  }
  // Where there is none, a check says so.
  return found ? *found : executable.parent_path() / name;
}

}  // namespace

DesktopUpdater::DesktopUpdater(kit::Application& application, const kit::UpdaterControllerArguments& arguments,
                               const updateclient::UpdateSource& source, const fs::path& executable)
    : windows_(application, source.configuration.shownVersion),
      engine_(engineOf(source, application.platform().product().program, executable),
              updateclient::watchOf(application)),
      opener_(updateclient::watchOf(application)),
      alarm_(updateclient::watchOf(application)),
      controller_(arguments, configurationOf(source, application.platform().product().program, executable),
                  updateclient::UpdaterPreferences(preferencesFile(application.platform().product().program)),
                  {.engine = engine_, .driver = windows_, .desktop = opener_, .alarm = alarm_}) {}

}  // namespace tarnwell::host_qt
