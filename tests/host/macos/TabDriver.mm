#include "host/macos/TabDriver.h"

#include <stdexcept>

#include "host/macos/ViewDriver.h"
#include "kit/control/Window.h"
#include "kit/controls/choices/TabBar.h"

/// What stands for an entry of a toolbar on the screen.
@interface NSObject (TWToolbarButton)
- (NSToolbarItem*)toolbarItem;
@end

namespace tarnwell::host_macos::driver {
namespace {

NSView* buttonOf(NSToolbarItem* item, NSView* parent) {
  NSArray* views = [parent subviews];
  for (NSUInteger i = 0; i < [views count]; ++i) {
    NSView* view = [views objectAtIndex:i];
    if ([view respondsToSelector:@selector(toolbarItem)] && [view toolbarItem] == item) {
      return view;
    }
    if (NSView* found = buttonOf(item, view)) {
      return found;
    }
  }
  return nil;
}

}  // namespace

void clickTab(const kit::TabBar& bar, int index) {
  NSWindow* shown = window(*bar.window());
  NSToolbarItem* item = [[[shown toolbar] items] objectAtIndex:static_cast<NSUInteger>(index)];
  NSView* button = buttonOf(item, [[shown contentView] superview]);
  if (button == nil) {
    throw std::invalid_argument("no button stands for the tab");
  }
  clickAt(button, 0.5, 0.5);
}

}  // namespace tarnwell::host_macos::driver
