#include "app/views/MenuBarExtraView.h"

#include "app/views/ApplicationActions.h"
#include "app/views/ProductLink.h"
#include "settingsaccess/PrePostSettingsLink.h"
#include "updates/CheckForUpdatesView.h"
#include "view/controls/buttons/Button.h"
#include "view/controls/containers/Divider.h"
#include "view/controls/text/Text.h"
#include "view/layout/Group.h"

namespace tarnwell::app {

using view::View;

View MenuBarExtraView::body() const {
  const View settings = View(settingsaccess::PrePostSettingsLink{
                                 .label = view::Text{"Settings..."}, .preAction = [] {}, .postAction = [] {}})
                            .keyboardShortcut({.key = ","});
  // Upper case is meant: it is shown, and matched, as it stands.
  const View quit = View(view::Button{.title = "Quit Tarnwell", .action = terminate}).keyboardShortcut({.key = "Q"});
  return view::Group{
      .children = {settings, view::Divider{}, view::Button{.title = "About Tarnwell", .action = showAboutPanel},
                   updates::CheckForUpdatesView(updaterEnv->updaterController().updater()),
                   ProductLink{.title = "Send feedback...", .path = "/feedback"},
                   ProductLink{.title = "Support this project ♥️", .path = "/donate"}, view::Divider{}, quit}};
}

}  // namespace tarnwell::app
