#include "app/TarnwellApp.h"

#include <tuple>

#include "app/views/ApplicationActions.h"
#include "app/views/LauncherView.h"
#include "app/views/MenuBarExtraView.h"
#include "app/views/ProductLink.h"
#include "app/views/SettingsView.h"
#include "app/views/WelcomeView.h"
#include "settingsaccess/PrePostSettingsLink.h"
#include "updates/CheckForUpdatesView.h"
#include "view/controls/buttons/Button.h"
#include "view/controls/containers/Divider.h"
#include "view/controls/text/Text.h"
#include "view/layout/Group.h"

namespace tarnwell::app {
namespace {

using view::CommandGroup;
using view::CommandGroupPlacement;
using view::View;

View aboutButton() { return view::Button{.title = "About Tarnwell", .action = showAboutPanel}; }

View showSettings() {
  return View(settingsaccess::PrePostSettingsLink{
                  .label = view::Text{"Show settings window"}, .preAction = [] {}, .postAction = [] {}})
      .keyboardShortcut({.key = ","});
}

/// The entries of the Help menu.
struct HelpEntries {
  view::ObservedObject<updates::UpdaterEnv> updaterEnv;

  auto stored() { return std::tie(updaterEnv); }
  View body() const {
    return view::Group{.children = {ProductLink{.title = "Tarnwell Help", .path = "/help"}, view::Divider{},
                                    updates::CheckForUpdatesView(updaterEnv->updaterController().updater()),
                                    ProductLink{.title = "Send feedback...", .path = "/feedback"},
                                    ProductLink{.title = "Support this project ♥️", .path = "/donate"},
                                    view::Divider{}, aboutButton()}};
  }
};

std::vector<CommandGroup> commands(const std::shared_ptr<updates::UpdaterEnv>& updaterEnv) {
  return {{.replacing = CommandGroupPlacement::appInfo, .content = aboutButton()},
          {.replacing = CommandGroupPlacement::newItem},
          {.replacing = CommandGroupPlacement::toolbar, .content = showSettings()},
          {.replacing = CommandGroupPlacement::help, .content = HelpEntries{.updaterEnv = updaterEnv}}};
}

}  // namespace

const std::shared_ptr<updates::UpdaterEnv>& TarnwellApp::updaterEnv() {
  if (!updaterEnv_) {
    updaterEnv_ = std::make_shared<updates::UpdaterEnv>();
  }
  return updaterEnv_;
}

std::vector<view::Scene> TarnwellApp::body() {
  const View settings =
      View(SettingsView{}).environmentObject(updaterEnv()).frame({.width = 600}).frame({.maxHeight = 700}).fixedSize();
  return {view::WindowGroup{
              .id = WelcomeView::launcherIdentifier, .content = LauncherView{}, .commands = commands(updaterEnv())},
          view::MenuBarExtra{.title = "Utility App",
                             .systemImage = "dock.rectangle",
                             .content = View(MenuBarExtraView{}).environmentObject(updaterEnv())},
          view::Settings{.content = settings}};
}

}  // namespace tarnwell::app
