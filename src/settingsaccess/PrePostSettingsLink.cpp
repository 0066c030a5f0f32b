#include "settingsaccess/PrePostSettingsLink.h"

#include "kit/application/Platform.h"
#include "settingsaccess/LegacyOpener.h"
#include "settingsaccess/PrePostActionsButtonStyle.h"
#include "view/controls/buttons/Button.h"
#include "view/controls/buttons/SettingsLink.h"

namespace tarnwell::settingsaccess {

view::View PrePostSettingsLink::body() const {
  kit::Application& application = kit::Application::shared();
  if (application.platform().systemVersion() >= kit::SystemVersion{.major = 14}) {
    return PrePostActionsButtonStyleModifier{.preAction = preAction, .postAction = postAction}.body(
        view::SettingsLink{.label = label});
  }
  return view::Button{.action =
                          [&application, before = preAction, after = postAction] {
                            before();
                            // A failure is not reported.
                            openSettingsThroughDelegate(application);
                            after();
                          },
                      .label = label};
}

}  // namespace tarnwell::settingsaccess
