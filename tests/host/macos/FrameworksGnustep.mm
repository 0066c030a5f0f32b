#include <cstdlib>
#include <stdexcept>
#include <string>

#include "host/macos/Frameworks.h"
#include "host/macos/ViewDriver.h"
#include "host/macos/gnustep/StatusBar.h"
#include "system/processes/Pipe.h"
#include "system/processes/Process.h"

/// What stands for an entry of a toolbar on the screen.
@interface NSObject (TWToolbarButton)
- (NSToolbarItem*)toolbarItem;
@end

namespace tarnwell::host_macos::frameworks {
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

// The server ends with this process.
void openDisplay() {
  system::Pipe pipe = system::Pipe::create();
  const auto server = system::Process::start({
      .words = {"Xvfb", "-displayfd", "3", "-screen", "0", "1280x1024x24", "-nolisten", "tcp"},
      .extra = pipe.writeEnd.number(),
      .endsWithStarter = true,
  });
  pipe.writeEnd.close();
  std::string number = pipe.readEnd.readAll().value_or("");
  if (!server || number.empty()) {
    throw std::runtime_error("Xvfb does not start");
  }
  number.pop_back();
  ::setenv("DISPLAY", (":" + number).c_str(), 1);
}

// Each has them.
void askForKeyboard() {}

NSStatusItem* statusItem() { return [TWStatusItem item]; }

void clickTab(NSWindow* window, NSUInteger index) {
  NSToolbarItem* item = [[[window toolbar] items] objectAtIndex:index];
  NSView* button = buttonOf(item, [[window contentView] superview]);
  if (button == nil) {
    throw std::invalid_argument("no button stands for the tab");
  }
  driver::clickAt(button, 0.5, 0.5);
}

// A menu is followed until a button of the mouse goes up.
void openAndClose(NSPopUpButton* button) {
  NSWindow* window = [button window];
  [NSApp postEvent:[NSEvent mouseEventWithType:NSEventTypeLeftMouseUp
                                      location:NSZeroPoint
                                 modifierFlags:0
                                     timestamp:0
                                  windowNumber:[window windowNumber]
                                       context:nil
                                   eventNumber:0
                                    clickCount:1
                                      pressure:0]
           atStart:NO];
  // The row under the pointer is the chosen one, which is not to be told.
  const SEL action = [button action];
  [button setAction:nullptr];
  [button accessibilityPerformShowMenu];
  [button setAction:action];
}

// Its slider grows to the right alone.
double placeOnTrack(double seen, bool isUpsideDown) { return isUpsideDown ? 1 - seen : seen; }

}  // namespace tarnwell::host_macos::frameworks
