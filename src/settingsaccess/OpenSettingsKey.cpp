#include "settingsaccess/OpenSettingsKey.h"

#include "diagnostics/Fault.h"

namespace tarnwell::settingsaccess {

OpenSettingsKey::Value OpenSettingsKey::initial() {
  kit::Application* application = kit::Application::shared();
  if (application == nullptr) {
    diagnostics::fault("the way to open the settings was asked for without an application");
  }
  return application->single<OpenSettingsAccessAction>(
      [application] { return OpenSettingsAccessAction::create(*application); });
}

}  // namespace tarnwell::settingsaccess
