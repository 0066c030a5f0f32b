#include "app/Composition.h"

#include "core/ShellCommandRunner.h"
#include "dockscreen/CommandRunnerKey.h"
#include "kit/application/Platform.h"

namespace tarnwell::app {
namespace {

view::EnvironmentValues environmentOf(kit::Platform& platform, core::CommandRunner& runner) {
  return view::EnvironmentValues()
      .with<dockscreen::CommandRunnerKey>(&runner)
      .with<view::NumberFormatKey>(platform.numberFormat())
      .with<view::SystemVersionKey>(platform.systemVersion())
      .with<view::OpenUrlKey>([&platform](const std::string& address) { platform.openUrl(address); })
      .with<view::ProductKey>(platform.product());
}

}  // namespace

Composition::Composition(kit::Platform& platform, core::CommandRunner& runner)
    : application_(kit::Application::create(platform)),
      scenes_(*application_, environmentOf(platform, runner)),
      reopening_(application_->notificationCenter().addObserver(
          kit::reopenNotification, [this](const auto& /*notification*/) { scenes_.openSettings(); })) {}

void Composition::install() { scenes_.install(root_.body()); }

int run(kit::Platform& platform) {
  core::ShellCommandRunner runner;
  const kit::Subscription children = platform.watch(runner.descriptor(), [&runner] { runner.reap(); });
  Composition composition(platform, runner);
  composition.install();
  return platform.run(composition.application());
}

}  // namespace tarnwell::app
