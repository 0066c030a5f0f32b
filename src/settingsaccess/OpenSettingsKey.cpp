#include "settingsaccess/OpenSettingsKey.h"

namespace tarnwell::settingsaccess {

OpenSettingsKey::Value OpenSettingsKey::initial() {
  kit::Application& application = kit::Application::shared();
  return application.single<OpenSettingsAccessAction>(
      [&application] { return OpenSettingsAccessAction::create(application); });
}

}  // namespace tarnwell::settingsaccess
