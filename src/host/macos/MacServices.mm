#include "host/macos/MacServices.h"

#include <utility>

#include "host/macos/MacUpdater.h"
#include "host/macos/system/Relaunch.h"

namespace tarnwell::host_macos {

MacServices::MacServices(kit::Product product, updateclient::UpdateSource updates)
    : product_(std::move(product)), updates_(std::move(updates)) {}

MacPlatform::Services MacServices::services() {
  return {.loginItem = &loginItem_,
          .log = &log_,
          .makeUpdaterController =
              [this](kit::Application& application, const kit::UpdaterControllerArguments& arguments) {
                return std::make_unique<MacUpdater>(application, arguments, updates_);
              },
          .startAgain = [this] { relaunchAfterEnd(log_, product_); }};
}

}  // namespace tarnwell::host_macos
