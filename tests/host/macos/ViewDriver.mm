#include "host/macos/ViewDriver.h"

#include <stdexcept>

#include "host/macos/Frameworks.h"
#include "host/macos/Toolkit.h"
#include "host/macos/controls/ViewPeer.h"
#include "host/macos/look/Conversions.h"
#include "kit/control/Window.h"
#include "kit/controls/choices/PopUpButton.h"
#include "kit/controls/choices/TabBar.h"
#include "kit/controls/ranges/Slider.h"
#include "kit/controls/text/TextField.h"

namespace tarnwell::host_macos::driver {
namespace {

void post(NSView* view, NSPoint at, NSEventType type) {
  NSWindow* window = [view window];
  [NSApp postEvent:[NSEvent mouseEventWithType:type
                                      location:[view convertPoint:at toView:nil]
                                 modifierFlags:0
                                     timestamp:0
                                  windowNumber:[window windowNumber]
                                       context:nil
                                   eventNumber:0
                                    clickCount:1
                                      pressure:1]
           atStart:NO];
}

NSPoint pointIn(NSView* view, double across, double down) {
  const NSRect bounds = [view bounds];
  return NSMakePoint(bounds.size.width * across, bounds.size.height * ([view isFlipped] ? down : 1 - down));
}

void press(NSView* view, NSPoint at) {
  post(view, at, NSEventTypeLeftMouseDown);
  post(view, at, NSEventTypeLeftMouseUp);
  settle();
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

void clickAt(NSView* view, double across, double down) { press(view, pointIn(view, across, down)); }

void click(const kit::Control& control) { clickAt(control, 0.5, 0.5); }

void clickAt(const kit::Control& control, double across, double down) { clickAt(view(control), across, down); }

void clickGround(const kit::Window& kitWindow, double x, double y) {
  press([window(kitWindow) contentView], NSMakePoint(x, y));
}

void drag(const kit::Slider& slider, double place) {
  auto* shown = static_cast<NSSlider*>(view(slider));
  const NSRect knob = [static_cast<NSSliderCell*>([shown cell]) knobRectFlipped:[shown isFlipped]];
  const double way = [shown bounds].size.width - knob.size.width;
  const double to = frameworks::placeOnTrack(place, slider.isUpsideDown());
  const double middle = knob.origin.y + knob.size.height / 2;
  post(shown, NSMakePoint(knob.origin.x + knob.size.width / 2, middle), NSEventTypeLeftMouseDown);
  const NSPoint end = NSMakePoint(knob.size.width / 2 + to * way, middle);
  post(shown, end, NSEventTypeLeftMouseDragged);
  post(shown, end, NSEventTypeLeftMouseUp);
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

void choose(const kit::TabBar& bar, int index) {
  frameworks::clickTab(window(*bar.window()), static_cast<NSUInteger>(index));
}

void choose(const kit::PopUpButton& button, int index) {
  auto* shown = static_cast<NSPopUpButton*>(view(button));
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
  [NSApp postEvent:[NSEvent keyEventWithType:NSEventTypeKeyDown
                                          location:NSZeroPoint
                                     modifierFlags:modifiers
                                         timestamp:0
                                      windowNumber:[shown windowNumber]
                                           context:nil
                                        characters:characters
                       charactersIgnoringModifiers:characters
                                         isARepeat:NO
                                           keyCode:0]
           atStart:NO];
  settle();
}

}  // namespace tarnwell::host_macos::driver
