#include "host/macos/MacServices.h"

#include <utility>

#include "host/macos/MacUpdater.h"
#include "host/macos/system/LocaleNumberFormat.h"
#include "host/macos/system/Relaunch.h"

namespace tarnwell::host_macos {
namespace {

kit::SystemVersion runningVersion() {
  const NSOperatingSystemVersion version = [[NSProcessInfo processInfo] operatingSystemVersion];
  return {.major = static_cast<int>(version.majorVersion),
          .minor = static_cast<int>(version.minorVersion),
          .patch = static_cast<int>(version.patchVersion)};
}

}  // namespace

MacServices::MacServices(kit::Product product, updateclient::UpdateSource updates)
    : product_(std::move(product)), updates_(std::move(updates)) {}

MacPlatform::Services MacServices::services() {
  return {.systemVersion = runningVersion(),
          .numberFormat = std::make_shared<const LocaleNumberFormat>(),
          .loginItem = &loginItem_,
          .log = &log_,
          .makeUpdaterController =
              [this](kit::Application& application, const kit::UpdaterControllerArguments& arguments) {
                return std::make_unique<MacUpdater>(application, arguments, updates_);
              },
          .open = [](NSURL* address) { [[NSWorkspace sharedWorkspace] openURL:address]; },
          .startAgain = [this] { relaunchAfterEnd(log_, product_); }};
}

}  // namespace tarnwell::host_macos
