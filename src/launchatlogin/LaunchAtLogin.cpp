#include "launchatlogin/LaunchAtLogin.h"

#include "kit/application/Application.h"
#include "kit/application/Platform.h"
#include "kit/ports/LoginItem.h"

namespace tarnwell::launchatlogin {
namespace {

kit::LoginItem& mainAppService() { return kit::Application::shared().platform().mainAppService(); }

std::optional<std::string> enable(kit::LoginItem& item) {
  // A fresh registration replaces one that may speak of a former place of the application.
  if (item.status() == kit::LoginItem::Status::enabled) {
    item.unregisterItem();
  }
  return item.registerItem();
}

}  // namespace

bool LaunchAtLogin::isEnabled() { return mainAppService().status() == kit::LoginItem::Status::enabled; }

void LaunchAtLogin::setEnabled(bool enabled) {
  kit::LoginItem& item = mainAppService();
  if (const auto failure = enabled ? enable(item) : item.unregisterItem()) {
    const std::string what = enabled ? "enable" : "disable";
    logger.error(kit::Application::shared().platform().log(), "Failed to " + what + " launch at login: " + *failure);
  }
}

bool LaunchAtLogin::wasLaunchedAtLogin() {
  const auto event = kit::Application::shared().platform().currentAppleEvent();
  if (!event || event->eventID != kit::openApplicationEvent) {
    return false;
  }
  const auto data = event->parameters.find(kit::propertyDataKeyword);
  return data != event->parameters.end() && data->second == kit::launchedAsLoginItem;
}

std::shared_ptr<LaunchAtLogin::Observable> LaunchAtLogin::observable() {
  return kit::Application::shared().single<Observable>([] { return std::make_shared<Observable>(); });
}

}  // namespace tarnwell::launchatlogin
