#include "app/views/WelcomeView.h"

#include "kit/application/Application.h"
#include "kit/application/Platform.h"
#include "kit/application/SettingsShortcut.h"
#include "view/controls/text/Text.h"

namespace tarnwell::app {

view::View WelcomeView::body() const {
  return view::View(view::Text{"Hello, World!"}).onAppear([dismiss = dismissWindow] {
    kit::Application& application = kit::Application::shared();
    application.platform().activateIgnoringOtherApps();
    kit::postSettingsShortcut(application);
    dismiss(launcherIdentifier);
  });
}

}  // namespace tarnwell::app
