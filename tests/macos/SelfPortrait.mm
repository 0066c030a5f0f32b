// Shows the settings as they are on this Mac, tab by tab, light and dark, and writes that down. It changes nothing.
// usage: tarnwell_macos_portrait --self-portrait FOLDER [OPTION OF THE PLATFORM...]
#import <AppKit/AppKit.h>

#include <algorithm>
#include <cstdlib>
#include <string_view>

#include "app/Composition.h"
#include "app/Product.h"
#include "diagnostics/Console.h"
#include "diagnostics/StandardStreams.h"
#include "host/macos/Frameworks.h"
#include "host/macos/MacServices.h"
#include "kit/application/Application.h"
#include "kit/controls/choices/TabBar.h"
#include "macos/Portrait.h"
#include "view/scenes/SceneRunner.h"

namespace tarnwell::macos {
namespace {

// For reads of the Dock's settings, and for what comes with a change of colours.
constexpr double secondsBetween = 2;

kit::Window* settingsWindow() {
  const auto& windows = kit::Application::shared().windows().all();
  const auto found = std::ranges::find(windows, view::SceneRunner::settingsWindowIdentifier, &kit::Window::identifier);
  return found != windows.end() ? *found : nullptr;
}

kit::TabBar& tabsOf(const kit::Window& window) {
  const auto& controls = window.controls();
  return dynamic_cast<kit::TabBar&>(
      **std::ranges::find_if(controls, [](kit::Control* each) { return dynamic_cast<kit::TabBar*>(each) != nullptr; }));
}

/// One step at a time, from the event loop.
class Sitting {
 public:
  explicit Sitting(std::filesystem::path folder) : folder_(std::move(folder)) {
    [NSTimer scheduledTimerWithTimeInterval:secondsBetween
                                     target:next_.target()
                                   selector:host_macos::ActionTarget::action()
                                   userInfo:nil
                                    repeats:YES];
  }

 private:
  static int tabOf(int step) { return step / 2; }
  static bool isDark(int step) { return step % 2 == 1; }

  void next() {
    kit::Window* window = settingsWindow();
    if (window == nullptr) {
      // Once: the event loop is asked again.
      kit::Application::shared().reopen();
      return;
    }
    kit::TabBar& tabs = tabsOf(*window);
    if (step_ >= 0 && !take(*window, tabs)) {
      diagnostics::reportError("cannot write to " + folder_.string());
      std::exit(EXIT_FAILURE);
    }
    ++step_;
    if (tabOf(step_) == static_cast<int>(tabs.items().size())) {
      [NSApp terminate:nil];
    } else {
      pose(tabs);
    }
  }

  bool take(const kit::Window& window, const kit::TabBar& tabs) const {
    const std::string& tab = tabs.items()[static_cast<std::size_t>(tabOf(step_))].title;
    return portray(window, folder_, tab + (isDark(step_) ? "-dark" : "-light"));
  }

  void pose(kit::TabBar& tabs) const {
    [NSApp
        setAppearance:[NSAppearance appearanceNamed:isDark(step_) ? NSAppearanceNameDarkAqua : NSAppearanceNameAqua]];
    tabs.choose(tabOf(step_));
  }

  std::filesystem::path folder_;
  host_macos::ActionTarget next_{[this] { next(); }};
  int step_ = -1;
};

int sit(const std::filesystem::path& folder) {
  const kit::Product product = app::product();
  host_macos::MacServices services(product, updateclient::updateSource());
  host_macos::MacPlatform platform(product, services.services());
  std::filesystem::create_directories(folder);
  host_macos::frameworks::askForKeyboard();
  const Sitting sitting(folder);
  return app::run(platform);
}

}  // namespace
}  // namespace tarnwell::macos

int main(int argc, char** argv) {
  tarnwell::diagnostics::prepareStandardStreams();
  if (argc < 3 || std::string_view(argv[1]) != "--self-portrait") {
    tarnwell::diagnostics::reportError(
        "usage: tarnwell_macos_portrait --self-portrait FOLDER [OPTION OF THE PLATFORM...]");
    return 2;
  }
  const auto pool = tarnwell::host_macos::Retained<NSAutoreleasePool*>::adopt([[NSAutoreleasePool alloc] init]);
  return tarnwell::macos::sit(argv[2]);
}
