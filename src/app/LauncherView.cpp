#include "app/LauncherView.h"

#include "app/WelcomeView.h"
#include "settingsaccess/OpenSettingsInjectionView.h"

namespace tarnwell::app {

view::View LauncherView::body() const {
  return settingsaccess::openSettingsAccess(
      WelcomeView{.openSettingsLegacy = openSettingsLegacy.get(), .dismissWindow = dismissWindow.get()});
}

}  // namespace tarnwell::app
