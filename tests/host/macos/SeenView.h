#pragma once

#import <AppKit/AppKit.h>

#include <vector>

#include "kit/control/Accessible.h"

namespace tarnwell::host_macos {

// What the platform's accessibility makes of a view, as far as the view itself knows it.

kit::Accessible lookAt(NSView* view);
/// As tabs.
kit::Accessible lookAt(NSToolbar* toolbar);
/// The rows of a pop-up button, the links in a text.
std::vector<kit::AccessiblePart> partsOf(NSView* view);
std::vector<kit::AccessiblePart> tabsOf(NSToolbar* toolbar);

// And what it does to one.

/// Any action but to choose a part. A menu is closed again, with nothing chosen.
void performOn(NSControl* control, const kit::Accessible& seen, const kit::AccessibleRequest& request);
/// The link of that number.
void follow(NSTextView* text, int index);

}  // namespace tarnwell::host_macos
