#include "kit/application/SettingsShortcut.h"

#include "kit/application/Application.h"
#include "kit/application/Platform.h"

namespace tarnwell::kit {
namespace {

constexpr std::uint16_t commaKeyCode = 43;  // On the ANSI layout.

}  // namespace

void postSettingsShortcut(Application& application) {
  if (application.platform().makesEvents()) {
    application.events().post(
        {.modifierFlags = commandFlag, .charactersIgnoringModifiers = ",", .keyCode = commaKeyCode});
  }
}

}  // namespace tarnwell::kit
