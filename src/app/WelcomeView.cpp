#include "app/WelcomeView.h"

#include "kit/Application.h"
#include "view/Text.h"

namespace tarnwell::app {
namespace {

constexpr std::uint16_t commaKeyCode = 43;  // On the ANSI layout.

void postSettingsKey(kit::Application& application) {
  const auto event = application.makeEvent({.type = kit::Event::Type::keyDown,
                                            .modifierFlags = kit::commandFlag,
                                            .charactersIgnoringModifiers = ",",
                                            .keyCode = commaKeyCode});
  if (event) {
    application.postEvent(*event, false);
  }
}

}  // namespace

view::View WelcomeView::body() const {
  return view::View(view::Text{"Hello, World!"}).onAppear([dismiss = dismissWindow] {
    kit::Application& application = *kit::Application::shared();
    application.activateIgnoringOtherApps(true);
    postSettingsKey(application);
    dismiss(launcherIdentifier);
  });
}

}  // namespace tarnwell::app
