#pragma once

#import <AppKit/AppKit.h>

namespace tarnwell::kit {
class Window;
}

/// A window of the program's: tells where the keyboard is, ends editing before a press elsewhere, asks before it
/// closes.
@interface TWWindow : NSWindow <NSWindowDelegate> {
  tarnwell::kit::Window* window_;
}
- (instancetype)initShowing:(tarnwell::kit::Window*)window;
/// It tells nothing from now on.
- (void)cut;
@end
