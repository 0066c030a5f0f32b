#include <csignal>
#include <memory>
#include <string>
#include <variant>

#include "core/ShellCommandRunner.h"
#include "diagnostics/Console.h"
#include "dockscreen/CommandRunnerKey.h"
#include "dockscreen/ContentView.h"
#include "host/linux/IcuNumberFormat.h"
#include "host/linux/PlayedSystemVersion.h"
#include "host/linux/SearchPath.h"
#include "host/qt/QtApplication.h"
#include "kit/Turn.h"
#include "view/HostedWindow.h"

namespace {

using namespace tarnwell;

int failed(const std::string& message, int status = 1) {
  diagnostics::printErrorLine("tarnwell: " + message);
  return status;
}

view::EnvironmentValues makeEnvironment(host::qt::QtApplication& application, core::CommandRunner& runner,
                                        kit::SystemVersion version) {
  const std::shared_ptr<const kit::NumberFormat> format(
      new host_linux::IcuNumberFormat(host_linux::IcuNumberFormat::fromEnvironment()));
  return view::EnvironmentValues()
      .with<dockscreen::CommandRunnerKey>(&runner)
      .with<view::NumberFormatKey>(format)
      .with<view::SystemVersionKey>(version)
      .with<view::OpenUrlKey>([&application](const std::string& address) { application.openUrl(address); });
}

int runApplication(host::qt::QtApplication& application, kit::SystemVersion version) {
  core::ShellCommandRunner runner;
  application.watch(runner.descriptor(), [&runner] { runner.reap(); });
  kit::Turn turn;
  const view::View content =
      view::View(dockscreen::ContentView{}).frame({.width = 600}).frame({.maxHeight = 700}).fixedSize();
  view::HostedWindow window(turn, application.host(),
                            {.identifier = "dock",
                             .title = "Tarnwell",
                             .view = content,
                             .environment = makeEnvironment(application, runner, version)});
  application.host().setMetricsChanged([&window] { window.window().metricsChanged(); });
  window.window().setCloseAction([&] {
    window.close();
    application.quit();
  });
  window.open();
  return application.run();
}

}  // namespace

int main(int argc, char** argv) {
  if (argc > 1) {
    return failed(std::string("unknown argument ") + argv[1] + "\nusage: tarnwell", 2);
  }
  // Whoever reads our diagnostic lines may stop reading them.
  std::signal(SIGPIPE, SIG_IGN);
  const auto version = host_linux::playedSystemVersion();
  if (const auto* failure = std::get_if<host_linux::Failure>(&version)) {
    return failed(failure->message);
  }
  if (const auto failure = host_linux::putStandInsFirst()) {
    return failed(failure->message);
  }
  const auto application = host::qt::QtApplication::create(argc, argv);
  return application ? runApplication(*application, std::get<kit::SystemVersion>(version)) : 1;
}
