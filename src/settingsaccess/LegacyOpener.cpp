#include "settingsaccess/LegacyOpener.h"

#include "kit/application/Platform.h"

namespace tarnwell::settingsaccess {
namespace {

constexpr const char* showSettingsWindow = "showSettingsWindow:";
constexpr const char* showPreferencesWindow = "showPreferencesWindow:";  // what systems before 13 call it

bool trySelector(kit::Application& application, const kit::Selector& selector) {
  const auto delegate = application.delegate();
  return delegate && application.responders().sendAction(selector, delegate, nullptr);
}

}  // namespace

std::optional<LegacyOpenSettingsError> openSettingsThroughDelegate(kit::Application& application) {
  if (application.platform().systemVersion() >= kit::SystemVersion{.major = 14}) {
    return LegacyOpenSettingsError::unsupportedPlatform;
  }
  if (trySelector(application, showSettingsWindow) || trySelector(application, showPreferencesWindow)) {
    return std::nullopt;
  }
  return LegacyOpenSettingsError::selectorNotFound;
}

}  // namespace tarnwell::settingsaccess
