#include "app/AppDelegate2.h"

#include <algorithm>
#include <string>
#include <vector>

#include "diagnostics/Console.h"
#include "kit/control/Window.h"

namespace tarnwell::app {
namespace {

constexpr const char* settingsWindowIdentifier = "com.apple.preferences.window";

std::string describe(const kit::Window& window) {
  const std::string identifier = window.identifier().empty() ? "" : window.identifier() + " ";
  return "<Window: " + identifier + "\"" + window.title() + "\">";
}

// `[<Window: settings "Settings">, <Window: "Untitled">]`
std::string describe(const std::vector<kit::Window*>& windows) {
  std::string list;
  for (const kit::Window* window : windows) {
    list += (list.empty() ? "" : ", ") + describe(*window);
  }
  return "[" + list + "]";
}

void giveDelegateToSettings(const std::vector<kit::Window*>& windows, const std::shared_ptr<kit::Object>& delegate) {
  const auto found =
      std::ranges::find(windows, settingsWindowIdentifier, [](const auto* window) { return window->identifier(); });
  if (found != windows.end()) {
    (*found)->setDelegate(delegate);
  }
}

}  // namespace

AppDelegate2::AppDelegate2(kit::Application& application) : application_(application) {
  respondTo(kit::selectors::applicationDidFinishLaunching,
            [this](auto* /*sender*/) { applicationDidFinishLaunching(); });
  respondTo(kit::selectors::windowWillClose,
            [this](auto* sender) { windowWillClose({.name = kit::windowWillCloseNotification, .object = sender}); });
  respondTo(kit::selectors::applicationWillTerminate, [this](auto* /*sender*/) { applicationWillTerminate(); });
}

void AppDelegate2::applicationDidFinishLaunching() {
  const auto changed = [weak = weak_from_this()](const kit::WindowList& windows) {
    diagnostics::printLine(describe(windows.all()));
    giveDelegateToSettings(windows.all(), weak.lock());
  };
  settingsWindowObserver = application_.windows().observe(changed);
  changed(application_.windows());
}

void AppDelegate2::windowWillClose(const kit::Notification& notification) {
  const auto* window = dynamic_cast<kit::Window*>(notification.object);
  if (window != nullptr && window->title() == "Settings") {
    diagnostics::printLine("Settings window closed");
  }
}

void AppDelegate2::applicationWillTerminate() {
  if (settingsWindowObserver) {
    settingsWindowObserver->invalidate();
  }
}

}  // namespace tarnwell::app
