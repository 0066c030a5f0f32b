#include <stdexcept>
#include <utility>

#include "app/Product.h"
#include "host/macos/Frameworks.h"
#include "host/macos/HeadlessServices.h"
#include "host/macos/Toolkit.h"
#include "host/macos/ViewDriver.h"
#include "host/macos/look/Conversions.h"
#include "host/macos/window/MacWindow.h"
#include "kit/application/Application.h"
#include "kit/control/Window.h"
#include "scenarios/System.h"

namespace tarnwell::scenarios {
namespace {

namespace driver = host_macos::driver;
using host_macos::toNSString;
using host_macos::toString;

// What has a title and is none of ours.
NSWindow* aboutPanel() {
  NSArray* windows = [NSApp windows];
  for (NSUInteger i = 0; i < [windows count]; ++i) {
    NSWindow* window = [windows objectAtIndex:i];
    const bool hasTitle = (static_cast<NSWindowStyleMask>([window styleMask]) & NSWindowStyleMaskTitled) != 0;
    if (hasTitle && [window isVisible] && ![window isKindOfClass:[TWWindow class]]) {
      return window;
    }
  }
  return nil;
}

/// As it is shown when it is opened.
NSMenu* opened(const std::string& title) {
  NSMenu* menu = title == System::icon ? [host_macos::frameworks::statusItem() menu]
                                       : [[[NSApp mainMenu] itemWithTitle:toNSString(title)] submenu];
  if (menu == nil) {
    throw std::invalid_argument("there is no menu " + title);
  }
  [[menu delegate] menuNeedsUpdate:menu];
  [menu update];
  return menu;
}

class MacSystem final : public System {
 public:
  MacSystem() = default;
  MacSystem(const MacSystem&) = delete;
  MacSystem& operator=(const MacSystem&) = delete;
  // The platform's panel is the same for all that follow.
  ~MacSystem() override { [aboutPanel() orderOut:nil]; }

  kit::Platform& platform() override { return platform_; }
  host_headless::HeadlessUpdater& updater() override { return headless_.updater; }
  host_headless::HeadlessLoginItem& loginItem() override { return headless_.loginItem; }
  const std::vector<std::string>& journal() override { return headless_.journal.lines(); }

  void launch(kit::Application& /*application*/) override {
    [[NSNotificationCenter defaultCenter] postNotificationName:NSApplicationDidFinishLaunchingNotification
                                                        object:NSApp];
    settle();
  }

  void settle() override {
    if (!host_macos::becomes([] { return kit::Application::shared().events().isEmpty(); })) {
      throw std::logic_error("the application does not come to rest");
    }
  }

  std::vector<std::string> entries(const std::string& menu) override {
    std::vector<std::string> lines;
    NSMenu* shown = opened(menu);
    for (NSInteger i = 0; i < [shown numberOfItems]; ++i) {
      auto* item = static_cast<NSMenuItem*>([shown itemAtIndex:i]);
      const std::string title = [item isSeparatorItem] ? "-" : toString([item title]);
      // One with a menu of its own opens that, which GNUstep does not take for an action.
      const bool canBeChosen = [item isSeparatorItem] || [item hasSubmenu] || [item isEnabled];
      lines.push_back(canBeChosen ? title : "(" + title + ")");
    }
    return lines;
  }

  void choose(const std::string& menu, const std::string& entry) override {
    NSMenu* shown = opened(menu);
    const NSInteger index = [shown indexOfItemWithTitle:toNSString(entry)];
    if (index < 0) {
      throw std::invalid_argument("there is no entry " + entry);
    }
    [shown performActionForItemAtIndex:index];
    settle();
  }

  void pressCommand(char key) override {
    driver::key(*kit::Application::shared().windows().keyWindow(), toNSString(std::string(1, key)),
                NSEventModifierFlagCommand);
    settle();
  }

  void closeWindow(kit::Window& window) override {
    [driver::window(window) performClose:nil];
    settle();
  }

  bool isOnScreen(const kit::Window& window) override { return [driver::window(window) isVisible]; }
  kit::Size sizeOf(const kit::Window& window) override {
    const NSSize size = [[driver::window(window) contentView] frame].size;
    return {.width = size.width, .height = size.height};
  }
  bool aboutIsShown() override { return aboutPanel() != nil; }
  void closeAbout() override {
    [aboutPanel() orderOut:nil];
    settle();
  }

  std::string openedAddress() override { return std::exchange(headless_.opened, {}); }

  void reopen() override {
    [[NSApp delegate] applicationShouldHandleReopen:NSApp hasVisibleWindows:YES];
    settle();
  }
  void end() override { [NSApp terminate:nil]; }
  bool endsBy(const std::function<void()>& action) override {
    action();
    return host_macos::takeEnd();
  }

 private:
  host_macos::HeadlessServices headless_;
  host_macos::MacPlatform platform_{app::product(), headless_.services()};
};

}  // namespace

std::unique_ptr<System> makeSystem() {
  host_macos::startToolkit();
  return std::make_unique<MacSystem>();
}

}  // namespace tarnwell::scenarios
