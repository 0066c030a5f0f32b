#include "host/macos/MacPlatform.h"

#include <cstdlib>
#include <utility>

#include "host/macos/look/Conversions.h"
#include "host/macos/menus/StatusItemPeer.h"
#include "host/macos/system/DescriptorWatch.h"
#include "host/macos/system/LaunchEvent.h"
#include "kit/application/Application.h"
#include "view/scenes/MainMenu.h"

namespace tarnwell::host_macos {
namespace {

NSMenu* submenuOf(NSMenu* menu, const char* title) { return [[menu itemWithTitle:toNSString(title)] submenu]; }

}  // namespace

MacPlatform::MacPlatform(kit::Product product, Services services)
    : product_(std::move(product)), services_(std::move(services)) {
  const ApplicationEvents events = {
      .launched = [this] { launched(); },
      .reopened = [] { kit::Application::shared().reopen(); },
      .terminates = [this] { terminates(); },
  };
  delegate_ = Retained<TWApplicationDelegate*>::adopt([[TWApplicationDelegate alloc] initWithEvents:events]);
  [[NSApplication sharedApplication] setDelegate:delegate_.get()];
}

// The platform asks menus and its delegate whenever it likes.
MacPlatform::~MacPlatform() {
  [NSApp setMainMenu:nil];
  [NSApp setDelegate:nil];
}

int MacPlatform::run(kit::Application& /*application*/) {
  [NSApp run];
  return EXIT_SUCCESS;
}

void MacPlatform::launched() {
  hasLaunched_ = true;
  if (const auto open = std::exchange(open_, nullptr); open && *open) {
    (*open)();
  }
  // From here the event that started the program can be asked for.
  kit::Application::shared().finishLaunching();
}

void MacPlatform::terminates() {
  if (kit::Application::isThere()) {
    kit::Application::shared().willTerminate();
  }
  if (startsAgain_) {
    services_.startAgain();
  }
}

kit::Subscription MacPlatform::watch(int descriptor, kit::Action readable) {
  return watchDescriptor(descriptor, std::move(readable));
}

void MacPlatform::wakeUp(kit::Application& /*application*/) {
  if (std::exchange(turnIsDue_, true)) {
    return;
  }
  NSTimer* timer = [NSTimer timerWithTimeInterval:0
                                           target:turn_.target()
                                         selector:ActionTarget::action()
                                         userInfo:nil
                                          repeats:NO];
  // Also while a menu is open or the mouse is held down.
  [[NSRunLoop mainRunLoop] addTimer:timer forMode:NSRunLoopCommonModes];
}

void MacPlatform::runTurn() {
  turnIsDue_ = false;
  if (kit::Application::isThere()) {
    kit::Application::shared().events().runTurn();
  }
}

kit::Subscription MacPlatform::whenReady(const kit::Action& open) {
  if (hasLaunched_) {
    open();
    return {};
  }
  // A program that has not finished launching cannot come to the front.
  open_ = std::make_shared<kit::Action>(open);
  const std::weak_ptr weak = open_;
  return kit::Subscription([weak] {
    if (const auto waiting = weak.lock()) {
      *waiting = nullptr;
    }
  });
}

void MacPlatform::activateIgnoringOtherApps() { [NSApp activateIgnoringOtherApps:YES]; }

void MacPlatform::terminate(kit::Application& /*application*/) { [NSApp terminate:nil]; }

void MacPlatform::orderFrontStandardAboutPanel(kit::Application& /*application*/) {
  // Icon, name, version and copyright come from the bundle.
  [NSApp orderFrontStandardAboutPanelWithOptions:[NSDictionary dictionary]];
}

void MacPlatform::openUrl(const std::string& address) {
  if (NSURL* url = [NSURL URLWithString:toNSString(address)]) {
    services_.open(url);
  }
}

void MacPlatform::showMainMenu(kit::Application& application) {
  mainMenu_ = std::make_unique<MenuMirror>(application.mainMenu());
  NSMenu* menu = mainMenu_->menu();
  [NSApp setMainMenu:menu];
  [NSApp setServicesMenu:submenuOf([[menu itemAtIndex:0] submenu], view::MainMenu::servicesTitle)];
  [NSApp setWindowsMenu:submenuOf(menu, view::MainMenu::windowTitle)];
  [NSApp setHelpMenu:submenuOf(menu, view::MainMenu::helpTitle)];
}

std::unique_ptr<kit::StatusItemPeer> MacPlatform::peer(kit::StatusItem& item) {
  return std::make_unique<StatusItemPeer>(item);
}

std::unique_ptr<kit::UpdaterController> MacPlatform::makeUpdaterController(
    kit::Application& application, const kit::UpdaterControllerArguments& arguments) {
  return services_.makeUpdaterController(application, arguments);
}

std::optional<kit::AppleEvent> MacPlatform::currentAppleEvent() const { return host_macos::currentAppleEvent(); }

}  // namespace tarnwell::host_macos
