#include "host/macos/window/MacWindow.h"

#include "host/macos/controls/ViewPeer.h"
#include "host/macos/look/Conversions.h"
#include "host/macos/look/FlippedView.h"
#include "kit/application/Application.h"
#include "kit/control/Window.h"
#include "kit/controls/text/TextField.h"

using tarnwell::host_macos::toKeyEvent;
using tarnwell::host_macos::ViewPeer;
namespace kit = tarnwell::kit;

namespace {

constexpr NSWindowStyleMask panelStyle = NSWindowStyleMaskTitled | NSWindowStyleMaskClosable;

// A field is edited in a view of its own inside the field.
kit::Control* controlOf(NSResponder* responder) {
  return [responder isKindOfClass:[NSView class]] ? ViewPeer::controlOf(static_cast<NSView*>(responder)) : nullptr;
}

}  // namespace

@implementation TWWindow
- (instancetype)initShowing:(kit::Window*)window {
  const bool isPanel = window->kind() == kit::Window::Kind::panel;
  self = [super initWithContentRect:NSZeroRect
                          styleMask:isPanel ? panelStyle : panelStyle | NSWindowStyleMaskMiniaturizable
                            backing:NSBackingStoreBuffered
                              defer:YES];
  if (self != nil) {
    window_ = window;
    [self setReleasedWhenClosed:NO];
    [self setHidesOnDeactivate:NO];
    [self setAutorecalculatesKeyViewLoop:NO];
    [self setContentView:[[[TWFlippedView alloc] initWithFrame:NSZeroRect] autorelease]];
    [self setDelegate:self];
  }
  return self;
}
- (void)cut {
  window_ = nullptr;
  [self setDelegate:nil];
}
- (BOOL)canBecomeMainWindow {
  return window_ != nullptr && window_->kind() == kit::Window::Kind::standard;
}
- (BOOL)makeFirstResponder:(NSResponder*)responder {
  const BOOL made = [super makeFirstResponder:responder];
  if (window_ != nullptr) {
    kit::Control* focused = controlOf([self firstResponder]);
    window_->setFocusedControl(focused);
    if (NSView* view = focused != nullptr ? ViewPeer::viewOf(*focused) : nil) {
      [view scrollRectToVisible:[view bounds]];
    }
  }
  return made;
}
// The platform's buttons and switches would leave the field as it is.
- (void)endEditingForPress:(NSEvent*)event {
  NSView* frame = [[self contentView] superview];
  kit::Control* pressed = controlOf([frame hitTest:[frame convertPoint:[event locationInWindow] fromView:nil]]);
  if (pressed == nullptr || pressed != controlOf([self firstResponder])) {
    [self makeFirstResponder:nil];
  }
  // A screen reader types without giving the field the keyboard.
  if (window_ != nullptr) {
    window_->endEditing(pressed);
  }
}
- (void)sendEvent:(NSEvent*)event {
  if ([event type] == NSEventTypeLeftMouseDown) {
    [self endEditingForPress:event];
  }
  [super sendEvent:event];
}
// What no control and no entry of a menu has wanted.
- (void)keyDown:(NSEvent*)event {
  if (window_ == nullptr || !window_->keyDown(toKeyEvent(event))) {
    [super keyDown:event];
  }
}
// What a text view, which does not hand the key on, makes of Escape.
- (void)cancelOperation:(id)sender {
  (void)sender;
  if (window_ != nullptr) {
    window_->keyDown({.charactersIgnoringModifiers = kit::escapeKey});
  }
}
- (BOOL)windowShouldClose:(NSWindow*)sender {
  (void)sender;
  if (window_ != nullptr) {
    window_->performClose();
  }
  // The owner takes it off the screen.
  return NO;
}
- (void)windowDidBecomeKey:(NSNotification*)note {
  (void)note;
  if (window_ != nullptr && window_->isVisible() && kit::Application::isThere()) {
    kit::Application::shared().windows().setKeyWindow(window_);
  }
}
- (void)windowDidResignKey:(NSNotification*)note {
  (void)note;
  if (window_ != nullptr && kit::Application::isThere() &&
      kit::Application::shared().windows().keyWindow() == window_) {
    kit::Application::shared().windows().setKeyWindow(nullptr);
  }
}
@end
