#include "host/qt/platform/DesktopServices.h"

#include <utility>

#include "host/linux/IcuNumberFormat.h"
#include "host/linux/NumberLocale.h"
#include "host/linux/start/RunningAppImage.h"
#include "host/qt/platform/DesktopUpdater.h"
#include "installation/LaunchedAtLogin.h"

namespace tarnwell::host_qt {

DesktopServices::DesktopServices(const kit::Product& product, const host_linux::ProcessSetup& start,
                                 updateclient::UpdateSource updates)
    : product_(product),
      start_(start),
      updates_(std::move(updates)),
      loginItem_({.id = product.identifier,
                  .name = product.name,
                  .executable = host_linux::programToStart(start.executable),
                  .argument = installation::launchedAtLogin}),
      log_(product.program) {}

QtPlatform::Services DesktopServices::services() {
  return {
      .product = product_,
      .systemVersion = start_.version,
      .numberFormat = std::make_shared<const host_linux::IcuNumberFormat>(host_linux::numberLocaleOfEnvironment()),
      .loginItem = &loginItem_,
      .log = &log_,
      .makeUpdaterController = [this](kit::Application& application, const kit::UpdaterControllerArguments& arguments) {
        return std::make_unique<DesktopUpdater>(application, arguments, updates_, start_.executable);
      }};
}

}  // namespace tarnwell::host_qt
