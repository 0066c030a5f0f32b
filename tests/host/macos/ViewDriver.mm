#include "host/macos/ViewDriver.h"

#include <stdexcept>

#include "host/macos/Toolkit.h"
#include "host/macos/controls/ViewPeer.h"
#include "host/macos/look/Conversions.h"
#include "kit/control/Window.h"
#include "kit/controls/choices/PopUpButton.h"
#include "kit/controls/choices/TabBar.h"
#include "kit/controls/ranges/Slider.h"
#include "kit/controls/text/TextField.h"

/// What stands for an entry of a toolbar on the screen.
@interface NSObject (TWToolbarButton)
- (NSToolbarItem*)toolbarItem;
@end

namespace tarnwell::host_macos::driver {
namespace {

void post(NSView* view, NSPoint at, NSEventType type) {
  NSWindow* window = [view window];
  [NSApp postEvent:[NSEvent mouseEventWithType:type
                                      location:[view convertPoint:at toView:nil]
                                 modifierFlags:0
                                     timestamp:0
                                  windowNumber:[window windowNumber]
                                       context:[window graphicsContext]
                                   eventNumber:0
                                    clickCount:1
                                      pressure:1]
           atStart:NO];
}

void press(NSView* view, NSPoint at) {
  post(view, at, NSLeftMouseDown);
  post(view, at, NSLeftMouseUp);
  settle();
}

NSPoint pointIn(NSView* view, double across, double down) {
  const NSRect bounds = [view bounds];
  return NSMakePoint(bounds.size.width * across, bounds.size.height * ([view isFlipped] ? down : 1 - down));
}

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

NSView* view(const kit::Control& control) {
  NSView* view = ViewPeer::viewOf(control);
  if (view == nil) {
    throw std::invalid_argument("nothing shows the control");
  }
  return view;
}

NSWindow* window(const kit::Window& window) { return [dynamic_cast<Container&>(*window.peer()).content() window]; }

NSToolbarItem* tab(const kit::TabBar& bar, int index) {
  NSArray* items = [[window(*bar.window()) toolbar] items];
  return [items objectAtIndex:static_cast<NSUInteger>(index)];
}

void click(const kit::Control& control) { clickAt(control, 0.5, 0.5); }

void clickAt(const kit::Control& control, double across, double down) {
  NSView* pressed = view(control);
  press(pressed, pointIn(pressed, across, down));
}

void clickGround(const kit::Window& kitWindow, double x, double y) {
  press([window(kitWindow) contentView], NSMakePoint(x, y));
}

void clickTab(const kit::TabBar& bar, int index) {
  NSView* frame = [[window(*bar.window()) contentView] superview];
  NSView* button = buttonOf(tab(bar, index), frame);
  if (button == nil) {
    throw std::invalid_argument("no button stands for the tab");
  }
  press(button, pointIn(button, 0.5, 0.5));
}

void drag(const kit::Slider& slider, double place) {
  auto* shown = static_cast<NSSlider*>(view(slider));
  const NSRect knob = [static_cast<NSSliderCell*>([shown cell]) knobRectFlipped:[shown isFlipped]];
  const double way = [shown bounds].size.width - knob.size.width;
  // GNUstep's slider grows to the right alone.
  const double to = slider.isUpsideDown() ? 1 - place : place;
  const double middle = knob.origin.y + knob.size.height / 2;
  post(shown, NSMakePoint(knob.origin.x + knob.size.width / 2, middle), NSLeftMouseDown);
  const NSPoint end = NSMakePoint(knob.size.width / 2 + to * way, middle);
  post(shown, end, NSLeftMouseDragged);
  post(shown, end, NSLeftMouseUp);
  settle();
}

void type(const kit::TextField& field, const std::string& text) {
  focus(field);
  [[static_cast<NSTextField*>(view(field)) currentEditor] selectAll:nil];
  NSString* typed = toNSString(text);
  if ([typed length] == 0) {
    typed = @"\x7f";
  }
  for (NSUInteger i = 0; i < [typed length]; ++i) {
    key(*field.window(), [typed substringWithRange:NSMakeRange(i, 1)]);
  }
}

void choose(const kit::PopUpButton& button, int index) {
  auto* shown = static_cast<NSPopUpButton*>(view(button));
  [[shown window] makeFirstResponder:nil];
  [shown selectItemAtIndex:index];
  [shown sendAction:[shown action] to:[shown target]];
  settle();
}

void focus(const kit::Control& control) {
  if (control.window()->focusedControl() != &control) {
    [window(*control.window()) makeFirstResponder:view(control)];
    settle();
  }
}

void key(const kit::Window& kitWindow, NSString* characters, NSUInteger modifiers) {
  NSWindow* shown = window(kitWindow);
  [NSApp postEvent:[NSEvent keyEventWithType:NSKeyDown
                                          location:NSZeroPoint
                                     modifierFlags:modifiers
                                         timestamp:0
                                      windowNumber:[shown windowNumber]
                                           context:[shown graphicsContext]
                                        characters:characters
                       charactersIgnoringModifiers:characters
                                         isARepeat:NO
                                           keyCode:0]
           atStart:NO];
  settle();
}

}  // namespace tarnwell::host_macos::driver
