#include <objc/runtime.h>

#include <utility>

#include "host/macos/Frameworks.h"
#include "host/macos/Toolkit.h"

namespace tarnwell::host_macos::frameworks {
namespace {

using Make = NSStatusItem* (*)(NSStatusBar*, SEL, CGFloat);
using Remove = void (*)(NSStatusBar*, SEL, NSStatusItem*);

/// The platform tells of no entry of its status bar, so that it is seen how they come and go.
struct StatusBar {
  NSStatusItem* item = nil;
  Make make = nullptr;
  Remove remove = nullptr;
};

StatusBar& statusBar() {
  static StatusBar bar;
  return bar;
}

NSStatusItem* makeItem(NSStatusBar* bar, SEL message, CGFloat length) {
  return statusBar().item = statusBar().make(bar, message, length);
}

void removeItem(NSStatusBar* bar, SEL message, NSStatusItem* item) {
  if (item == statusBar().item) {
    statusBar().item = nil;
  }
  statusBar().remove(bar, message, item);
}

template <class Function>
Function replace(SEL message, Function own) {
  Method method = class_getInstanceMethod([NSStatusBar class], message);
  return reinterpret_cast<Function>(method_setImplementation(method, reinterpret_cast<IMP>(own)));
}

}  // namespace

// The user's.
void openDisplay() {
  statusBar().make = replace(@selector(statusItemWithLength:), &makeItem);
  statusBar().remove = replace(@selector(removeStatusItem:), &removeItem);
}

void askForKeyboard() {
  [NSApp setActivationPolicy:NSApplicationActivationPolicyRegular];
  [NSApp activateIgnoringOtherApps:YES];
}

NSStatusItem* statusItem() { return statusBar().item; }

// Where it stands the platform does not say.
void clickTab(NSWindow* window, NSUInteger index) {
  NSToolbar* toolbar = [window toolbar];
  NSToolbarItem* item = [[toolbar items] objectAtIndex:index];
  [toolbar validateVisibleItems];
  if ([item isEnabled]) {
    [toolbar setSelectedItemIdentifier:[item itemIdentifier]];
    [NSApp sendAction:[item action] to:[item target] from:item];
  }
  settle();
}

void openAndClose(NSPopUpButton* button) {
  [[button menu] performSelector:@selector(cancelTracking)
                      withObject:nil
                      afterDelay:0
                         inModes:[NSArray arrayWithObject:NSEventTrackingRunLoopMode]];
  [button accessibilityPerformShowMenu];
}

double placeOnTrack(double seen, bool /*isUpsideDown*/) { return seen; }

}  // namespace tarnwell::host_macos::frameworks
