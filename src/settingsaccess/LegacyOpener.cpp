#include "settingsaccess/LegacyOpener.h"

#include "kit/application/Platform.h"

namespace tarnwell::settingsaccess {
namespace {

bool trySelector(kit::Application& application, const kit::Selector& selector) {
  const auto delegate = application.delegate();
  if (!delegate || !delegate->respondsToSelector(selector)) {
    return false;
  }
  // Whatever comes of it, it was the delegate's to answer.
  application.responders().sendAction(selector, delegate, nullptr);
  return true;
}

}  // namespace

std::optional<LegacyOpenSettingsError> openSettingsThroughDelegate(kit::Application& application) {
  if (application.platform().systemVersion() >= kit::SystemVersion{.major = 14}) {
    return LegacyOpenSettingsError::unsupportedPlatform;
  }
  if (trySelector(application, "showSettingsWindow:") || trySelector(application, "showPreferencesWindow:")) {
    return std::nullopt;
  }
  return LegacyOpenSettingsError::selectorNotFound;
}

}  // namespace tarnwell::settingsaccess
