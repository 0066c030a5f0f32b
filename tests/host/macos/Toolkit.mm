#include "host/macos/Toolkit.h"

#include <utility>

#include "fixtures/WaitFor.h"
#include "host/macos/Frameworks.h"

/// An application that is told that it ends, and stays.
@interface TWLastingApplication : NSApplication {
 @public
  BOOL hasEnded_;
}
@end
@implementation TWLastingApplication
- (void)terminate:(id)sender {
  (void)sender;
  hasEnded_ = YES;
  [[NSNotificationCenter defaultCenter] postNotificationName:NSApplicationWillTerminateNotification object:self];
}
@end

namespace tarnwell::host_macos {
namespace {

// Between two events that follow from each other without anything else having been asked for.
constexpr double pause = 0.005;

TWLastingApplication* application() { return static_cast<TWLastingApplication*>(NSApp); }

}  // namespace

void startToolkit() {
  static const bool started = [] {
    frameworks::openDisplay();
    [[NSAutoreleasePool alloc] init];
    [TWLastingApplication sharedApplication];
    frameworks::askForKeyboard();
    [NSApp finishLaunching];
    return true;
  }();
  (void)started;
}

void settle() {
  for (;;) {
    NSEvent* event = [NSApp nextEventMatchingMask:NSEventMaskAny
                                        untilDate:[NSDate dateWithTimeIntervalSinceNow:pause]
                                           inMode:NSDefaultRunLoopMode
                                          dequeue:YES];
    if (event == nil) {
      return;
    }
    [NSApp sendEvent:event];
  }
}

bool becomes(const std::function<bool()>& condition) {
  return fixtures::waitFor([&condition] {
    settle();
    return condition();
  });
}

bool takeEnd() { return std::exchange(application()->hasEnded_, NO) == YES; }

}  // namespace tarnwell::host_macos
