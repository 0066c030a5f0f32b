#pragma once

#import <AppKit/AppKit.h>

#include "kit/host/TextStyle.h"

namespace tarnwell::host_macos {

/// The system's font for that part of a text, in the size that the user has set.
NSFont* fontOf(kit::FontRole role);

/// A colour that follows dark mode and contrast.
NSColor* colorOf(kit::ColorRole role);

/// How far below its top a control of that height has what lines up with the baseline of a text beside it: the control
/// stands in the middle of the text's capital letters.
double baselineBesideText(double height);

}  // namespace tarnwell::host_macos
