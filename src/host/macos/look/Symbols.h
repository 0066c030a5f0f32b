#pragma once

#import <AppKit/AppKit.h>

#include <string>

namespace tarnwell::host_macos {

/// The system's symbol of that name, or the application's icon; nil for a name that neither has. `description` is for
/// screen readers and may be nil.
NSImage* imageOf(const std::string& symbol, NSString* description = nil);

}  // namespace tarnwell::host_macos
