#pragma once

#import <AppKit/AppKit.h>

#include <vector>

#include "kit/control/Accessible.h"

namespace tarnwell::host_macos {

// What the platform tells an assistive client of a view. How far an increment goes it does not tell.

kit::Accessible lookAt(NSView* view);
/// As tabs.
kit::Accessible lookAt(NSToolbar* toolbar);
/// The rows of a pop-up button, the links in a text.
std::vector<kit::AccessiblePart> partsOf(NSView* view);
std::vector<kit::AccessiblePart> tabsOf(NSToolbar* toolbar);

// And what such a client has it do.

/// Any action but to choose a part. A menu is closed again, with nothing chosen.
void performOn(NSView* view, const kit::AccessibleRequest& request);
/// The link of that number.
void follow(NSTextView* text, int index);

}  // namespace tarnwell::host_macos
