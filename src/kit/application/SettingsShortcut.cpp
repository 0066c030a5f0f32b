#include "kit/application/SettingsShortcut.h"

#include "kit/application/Application.h"

namespace tarnwell::kit {
namespace {

constexpr std::uint16_t commaKeyCode = 43;  // On the ANSI layout.

}  // namespace

void postSettingsShortcut(Application& application) {
  const auto event = application.makeEvent({.type = Event::Type::keyDown,
                                            .modifierFlags = commandFlag,
                                            .charactersIgnoringModifiers = ",",
                                            .keyCode = commaKeyCode});
  if (event) {
    application.postEvent(*event, false);
  }
}

}  // namespace tarnwell::kit
