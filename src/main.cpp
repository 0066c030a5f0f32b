#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <string>
#include <utility>
#include <variant>

#include "app/TarnwellApp.h"
#include "core/ShellCommandRunner.h"
#include "diagnostics/Console.h"
#include "diagnostics/StandardStreams.h"
#include "dockscreen/CommandRunnerKey.h"
#include "host/linux/CommandLine.h"
#include "host/linux/EmulatedSystemVersion.h"
#include "host/linux/IcuNumberFormat.h"
#include "host/linux/JournalLog.h"
#include "host/linux/NumberLocale.h"
#include "host/linux/SearchPath.h"
#include "host/linux/StartProgram.h"
#include "host/linux/XdgLoginItem.h"
#include "host/qt/QtApplication.h"
#include "host/qt/QtPlatform.h"
#include "host/qt/SingleInstance.h"
#include "host/qt/panels/DesktopUpdater.h"
#include "host/qt/session/ActivationToken.h"
#include "kit/application/Application.h"
#include "kit/application/ApplicationId.h"
#include "system/RunningExecutable.h"
#include "updater/UpdateSource.h"
#include "updater/package/RunningAppImage.h"
#include "view/scenes/SceneRunner.h"

namespace tarnwell {
namespace {

constexpr int wrongUsage = 2;

int failed(const std::string& message, int status) {
  diagnostics::printErrorLine("tarnwell: " + message);
  return status;
}

view::EnvironmentValues makeEnvironment(host_qt::QtPlatform& platform, core::CommandRunner& runner) {
  return view::EnvironmentValues()
      .with<dockscreen::CommandRunnerKey>(&runner)
      .with<view::NumberFormatKey>(platform.numberFormat())
      .with<view::SystemVersionKey>(platform.systemVersion())
      .with<view::OpenUrlKey>([&platform](const std::string& address) { platform.openUrl(address); });
}

/// What is settled before anything is shown.
struct Start {
  host_linux::LaunchArguments launch = {};
  kit::SystemVersion version = {};
  std::filesystem::path executable = {};
};

/// An AppImage is mounted where nothing is any more once it has ended.
std::filesystem::path executableToStart(const Start& start) {
  return updater::runningAppImage(start.executable).value_or(start.executable);
}

std::unique_ptr<kit::UpdaterController> makeUpdaterController(
    const kit::UpdaterControllerArguments& arguments, host_qt::QtApplication& desktop, const Start& start,
    const std::shared_ptr<const kit::NumberFormat>& numberFormat) {
  return std::make_unique<host_qt::DesktopUpdater>(
      desktop.host().theme(), arguments,
      host_qt::DesktopUpdater::Settings{
          .source = updater::updateSource(),
          .executable = start.executable,
          .numberFormat = numberFormat,
          .openUrl = [&desktop](const std::string& address) { desktop.openUrl(address); },
          .perform = [](kit::Action action) { kit::Application::shared()->turn().perform(std::move(action)); },
          .keyEquivalents = [](const kit::KeyEvent& key) { kit::Application::shared()->performKeyEquivalent(key); }});
}

int run(host_qt::QtApplication& desktop, host_qt::SingleInstance& instance, const Start& start) {
  if (!instance.listen(desktop)) {
    return EXIT_SUCCESS;
  }
  host_linux::XdgLoginItem loginItem({.id = kit::applicationId,
                                      .name = "Tarnwell",
                                      .executable = executableToStart(start),
                                      .argument = host_linux::LaunchArguments::launchedAtLogin});
  host_linux::JournalLog log("tarnwell");
  const auto numberFormat =
      std::make_shared<const host_linux::IcuNumberFormat>(host_linux::numberLocaleOfEnvironment());
  host_qt::QtPlatform platform(
      desktop, {.systemVersion = start.version,
                .numberFormat = numberFormat,
                .loginItem = &loginItem,
                .log = &log,
                .makeUpdaterController =
                    [&](const kit::UpdaterControllerArguments& arguments) {
                      return makeUpdaterController(arguments, desktop, start, numberFormat);
                    },
                .about = {.name = "Tarnwell", .version = TARNWELL_VERSION, .copyright = TARNWELL_COPYRIGHT},
                .menuWindow = view::SceneRunner::settingsWindowIdentifier});
  core::ShellCommandRunner runner;
  desktop.watch(runner.descriptor(), [&runner] { runner.reap(); });
  const auto application = kit::Application::create(platform);
  app::TarnwellApp tarnwellApp;
  view::SceneRunner scenes(*application, makeEnvironment(platform, runner));
  instance.setAsked([&](const host_qt::ApplicationService::Request& request) {
    host_qt::useActivationToken(request.token);
    application->turn().perform([&scenes] { scenes.openSettings(); });
    platform.activate();
  });
  scenes.install(tarnwellApp.body());
  platform.launch(*application, start.launch.event());
  return desktop.run();
}

/// For a further start that was told that this process runs, which then ended.
void startAnew(const Start& start, const std::string& token) {
  const auto started =
      host_linux::startProgram({"env", "XDG_ACTIVATION_TOKEN=" + token, executableToStart(start).string()});
  if (!started) {
    failed(started.error().message, EXIT_FAILURE);
  }
}

int startOnDesktop(int argc, char** argv, const Start& start) {
  // Before the toolkit starts, which uses it up.
  const std::string token = host_qt::givenActivationToken();
  const auto instance = host_qt::SingleInstance::claim(token);
  if (!instance) {
    // The one that runs already comes to the front.
    return EXIT_SUCCESS;
  }
  const auto desktop = host_qt::QtApplication::create(argc, argv);
  if (!desktop) {
    return EXIT_FAILURE;
  }
  host_qt::useActivationToken(token);
  const int status = run(*desktop, *instance, start);
  if (const auto late = instance->release()) {
    startAnew(start, *late);
  }
  return status;
}

int start(int argc, char** argv, const host_linux::LaunchArguments& launch) {
  // The parent process may ignore the ends of its children, and that is inherited: how ours end would not be known.
  std::signal(SIGCHLD, SIG_DFL);
  const auto version = host_linux::emulatedSystemVersion();
  if (!version) {
    return failed(version.error().message, EXIT_FAILURE);
  }
  const auto executable = system::runningExecutable();
  if (!executable) {
    return failed(executable.error().message, EXIT_FAILURE);
  }
  if (const auto placed = host_linux::putStandInsFirst(); !placed) {
    return failed(placed.error().message, EXIT_FAILURE);
  }
  return startOnDesktop(argc, argv, {.launch = launch, .version = *version, .executable = *executable});
}

}  // namespace
}  // namespace tarnwell

// What is thrown past here is a fault, and ends the process as one.
int main(int argc, char** argv) {  // NOLINT(bugprone-exception-escape)
  using tarnwell::host_linux::CommandLine;
  using tarnwell::host_linux::LaunchArguments;
  using tarnwell::system::Failure;
  tarnwell::diagnostics::prepareStandardStreams();
  const CommandLine::Parsed parsed = CommandLine::parse(argc, argv);
  if (const auto* print = std::get_if<CommandLine::Print>(&parsed)) {
    tarnwell::diagnostics::printLine(print->text);
    return EXIT_SUCCESS;
  }
  if (const auto* failure = std::get_if<Failure>(&parsed)) {
    return tarnwell::failed(failure->message, tarnwell::wrongUsage);
  }
  return tarnwell::start(argc, argv, std::get<LaunchArguments>(parsed));
}
