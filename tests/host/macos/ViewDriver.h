#pragma once

#import <AppKit/AppKit.h>

#include <string>

namespace tarnwell::kit {
class Control;
class PopUpButton;
class Slider;
class TabBar;
class TextField;
class Window;
}  // namespace tarnwell::kit

/// The user's hands on the platform's controls. Presses and keys are posted to the application's queue: what is hit,
/// whether it is enabled and where the keyboard goes is decided on the way.
namespace tarnwell::host_macos::driver {

/// The view that shows `control`; a fault where there is none.
NSView* view(const kit::Control& control);
NSWindow* window(const kit::Window& window);

void click(const kit::Control& control);
/// At a part of the width and height of the control, from the left and from the top.
void clickAt(const kit::Control& control, double across, double down);
void clickAt(NSView* view, double across, double down);
/// Where no control is, from the top left corner of the content.
void clickGround(const kit::Window& window, double x, double y);
/// From the knob to a place on the track as seen, 0 the left end and 1 the right one.
void drag(const kit::Slider& slider, double place);
/// Puts the text in the place of what the field holds, and leaves it there, not committed.
void type(const kit::TextField& field, const std::string& text);
void choose(const kit::PopUpButton& button, int index);
void choose(const kit::TabBar& bar, int index);

/// Gives the keyboard to `control`, unless it has it.
void focus(const kit::Control& control);
/// To whatever has the keyboard in the window.
void key(const kit::Window& window, NSString* characters, NSUInteger modifiers = 0);

}  // namespace tarnwell::host_macos::driver
