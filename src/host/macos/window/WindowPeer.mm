#include "host/macos/window/WindowPeer.h"

#include "host/macos/controls/ViewPeer.h"
#include "host/macos/look/Conversions.h"
#include "kit/control/Window.h"
#include "kit/controls/buttons/Button.h"

namespace tarnwell::host_macos {

WindowPeer::WindowPeer(kit::Window& window)
    : kitWindow_(window), window_(Retained<TWWindow*>::adopt([[TWWindow alloc] initShowing:&window])) {
  [window_.get() setIdentifier:toNSString(window.identifier())];
}

WindowPeer::~WindowPeer() {
  [window_.get() cut];
  [window_.get() orderOut:nil];
}

void WindowPeer::show(kit::Aspect aspect) noexcept {
  if (aspect == kit::Aspect::title) {
    [window_.get() setTitle:toNSString(kitWindow_.title())];
  } else if (aspect == kit::Aspect::accessibleDescription) {
    [window_.get() setAccessibilityHelp:toNSString(kitWindow_.accessibleDescription())];
  } else if (aspect == kit::Aspect::level) {
    // The numbers are the platform's.
    [window_.get() setLevel:kitWindow_.level()];
  } else if (aspect == kit::Aspect::visible) {
    showOrHide();
  }
}

void WindowPeer::showOrHide() {
  if (!kitWindow_.isVisible()) {
    [window_.get() orderOut:nil];
    return;
  }
  if (!std::exchange(wasShown_, true)) {
    [window_.get() center];
  }
  if (kitWindow_.takesKeyboard()) {
    orderFront();
  } else {
    [window_.get() orderFront:nil];
  }
}

void WindowPeer::place(const kit::Rect& frame) noexcept {
  const NSRect old = [window_.get() frame];
  const NSSize around = chrome();
  const double height = frame.height + around.height;
  [window_.get() setFrame:NSMakeRect(old.origin.x, NSMaxY(old) - height, frame.width + around.width, height)
                  display:YES];
}

NSSize WindowPeer::chrome() const {
  // Measured, since the content's rectangle that the platform computes leaves the toolbar out.
  const NSSize whole = [window_.get() frame].size;
  const NSSize inside = [content() frame].size;
  return NSMakeSize(whole.width - inside.width, whole.height - inside.height);
}

double WindowPeer::availableHeight(double /*width*/) const {
  NSScreen* screen = [window_.get() screen] != nil ? [window_.get() screen] : [NSScreen mainScreen];
  return [screen visibleFrame].size.height - chrome().height;
}

void WindowPeer::reorder(const std::vector<kit::Control*>& inTreeOrder) noexcept {
  NSView* first = nil;
  NSView* last = nil;
  for (const kit::Control* control : inTreeOrder) {
    NSView* view = control->takesFocus() ? ViewPeer::viewOf(*control) : nil;
    if (view == nil) {
      continue;
    }
    [last setNextKeyView:view];
    first = first != nil ? first : view;
    last = view;
  }
  [last setNextKeyView:first];
  // Where Tab begins. The platform gives that one the keyboard when the window first comes, until `focus` says what has
  // it.
  [window_.get() setInitialFirstResponder:first];
}

void WindowPeer::miniaturize() noexcept { [window_.get() miniaturize:nil]; }

void WindowPeer::orderFront() noexcept { [window_.get() makeKeyAndOrderFront:nil]; }

void WindowPeer::focus(kit::Control* control) noexcept {
  NSView* view = control != nullptr ? ViewPeer::viewOf(*control) : nil;
  // Buttons take the keyboard where the user has asked for that in the system's settings.
  [window_.get() makeFirstResponder:[view canBecomeKeyView] ? view : nil];
}

}  // namespace tarnwell::host_macos
