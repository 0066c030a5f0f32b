#pragma once

#import <AppKit/AppKit.h>

#include "kit/controls/text/RichText.h"

namespace tarnwell::host_macos {

/// The text as the platform's text views draw it, autoreleased. A link is the number that the control knows it by, so
/// that nothing in it can be opened or loaded but by the control.
NSAttributedString* attributedString(const kit::StyledText& text);

}  // namespace tarnwell::host_macos
