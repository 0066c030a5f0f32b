#include "app/views/SettingsView.h"

#include "dockscreen/ContentView.h"
#include "kit/application/Application.h"
#include "kit/control/Window.h"
#include "updates/GeneralView.h"
#include "view/controls/choices/TabView.h"
#include "view/scenes/SceneRunner.h"

namespace tarnwell::app {
namespace {

using view::View;

bool isSettingsWindow(const kit::Object* object) {
  const auto* window = dynamic_cast<const kit::Window*>(object);
  return window != nullptr && window->identifier() == view::SceneRunner::settingsWindowIdentifier;
}

kit::Subscription observeClosing(kit::NotificationCenter::Handler handler) {
  return kit::Application::shared().notificationCenter().addObserver(kit::windowWillCloseNotification,
                                                                     std::move(handler));
}

}  // namespace

View SettingsView::body() const {
  const View general = View(updates::GeneralView{}).environmentObject(updaterEnv.get());
  return View(view::makeTabView<Tabs>(
                  selection.binding(),
                  {{.tag = Tabs::dock,
                    .title = "Dock",
                    .symbol = "dock.rectangle",
                    .content = dockscreen::ContentView{}},
                   {.tag = Tabs::general, .title = "General", .symbol = "gear", .content = general}}))
      .frame({.width = 600})
      .frame({.maxHeight = 700})
      .fixedSize()
      .onReceive(observeClosing, [select = selection.binding()](const kit::Notification& notification) {
        if (isSettingsWindow(notification.object)) {
          select.set(Tabs::dock);
        }
      });
}

}  // namespace tarnwell::app
