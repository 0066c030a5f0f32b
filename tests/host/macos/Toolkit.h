#pragma once

#import <AppKit/AppKit.h>

#include <functional>

namespace tarnwell::host_macos {

/// The platform's application of this test program, made when it is first asked for, on a display of its own. It lives
/// as long as the tests run.
void startToolkit();

/// Handles every event that waits.
void settle();
/// The same until `condition` holds; false when it does not by the deadline.
bool becomes(const std::function<bool()>& condition);

/// Whether the application was to end since the last call. It is told that it ends, and goes on.
bool takeEnd();

}  // namespace tarnwell::host_macos
