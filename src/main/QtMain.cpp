// The window's program on a Linux desktop.
#include <cstdlib>
#include <span>

#include "app/Composition.h"
#include "app/Product.h"
#include "diagnostics/Console.h"
#include "diagnostics/StandardStreams.h"
#include "host/linux/start/LaunchArguments.h"
#include "host/linux/start/RunningAppImage.h"
#include "host/linux/start/StartProgram.h"
#include "host/qt/platform/DesktopServices.h"
#include "host/qt/platform/SingleInstance.h"

namespace tarnwell {
namespace {

constexpr int wrongUsage = 2;

int failed(const std::string& message, int status) {
  diagnostics::reportError(message);
  return status;
}

int run(host_qt::QtApplication& toolkit, host_qt::SingleInstance& instance, const kit::Product& product,
        const host_linux::ProcessSetup& start, const host_linux::LaunchArguments& launch) {
  if (!instance.listen(toolkit)) {
    return EXIT_SUCCESS;
  }
  host_qt::DesktopServices services(product, start, updateclient::updateSource());
  auto answers = services.services();
  answers.launchEvent = launch.event();
  answers.startAgainAtEnd = [&instance] { instance.startAgainAtEnd(); };
  answers.menuWindow = view::SceneRunner::settingsWindowIdentifier;
  host_qt::QtPlatform platform(toolkit, std::move(answers));
  instance.setAsked([&platform](const auto& request) { platform.reopen(request.token); });
  return app::run(platform);
}

/// For an update, or a further start that was told that this process runs, which then ended.
void startAnew(const host_linux::ProcessSetup& start, const std::string& token) {
  const auto program = host_linux::programToStart(start.executable).string();
  if (const auto started = host_linux::startProgram({"env", "XDG_ACTIVATION_TOKEN=" + token, program}); !started) {
    diagnostics::reportError(started.error().message);
  }
}

int start(int argc, char** argv, const kit::Product& product, const host_linux::LaunchArguments& launch) {
  const auto start = host_linux::ProcessSetup::prepare(product.program);
  if (!start) {
    return failed(start.error().message, EXIT_FAILURE);
  }
  const auto instance = host_qt::SingleInstance::claim(product);
  if (!instance) {
    // The one that runs already comes to the front.
    return EXIT_SUCCESS;
  }
  const auto toolkit = host_qt::QtApplication::create(argc, argv);
  if (!toolkit) {
    return EXIT_FAILURE;
  }
  const int status = run(*toolkit, *instance, product, *start, launch);
  if (const auto late = instance->release()) {
    startAnew(*start, *late);
  }
  return status;
}

}  // namespace
}  // namespace tarnwell

int main(int argc, char** argv) {  // NOLINT(bugprone-exception-escape): what is thrown past here is a fault
  using namespace tarnwell;
  diagnostics::prepareStandardStreams();
  const std::span<const char* const> words(argv, static_cast<std::size_t>(argc));
  const auto launch = host_linux::LaunchArguments::parse(words.subspan(words.empty() ? 0 : 1));
  if (!launch) {
    return failed(launch.error().message, wrongUsage);
  }
  return start(argc, argv, app::product(), *launch);
}
