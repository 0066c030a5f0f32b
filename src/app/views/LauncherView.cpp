#include "app/views/LauncherView.h"

#include "app/views/WelcomeView.h"
#include "settingsaccess/OpenSettingsInjectionView.h"

namespace tarnwell::app {

view::View LauncherView::body() const {
  return settingsaccess::openSettingsAccess(
      WelcomeView{.openSettingsLegacy = openSettingsLegacy.get(), .dismissWindow = dismissWindow.get()});
}

}  // namespace tarnwell::app
