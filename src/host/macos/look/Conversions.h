#pragma once

#import <AppKit/AppKit.h>

#include <string>
#include <string_view>

#include "kit/host/Geometry.h"
#include "kit/host/KeyEvent.h"

namespace tarnwell::host_macos {

/// Autoreleased; empty for what is no UTF-8.
NSString* toNSString(std::string_view text);
/// Empty for nil.
std::string toString(NSString* text);

NSRect toNSRect(const kit::Rect& rect);
kit::Rect toRect(NSRect rect);

kit::KeyEvent toKeyEvent(NSEvent* event);

}  // namespace tarnwell::host_macos
