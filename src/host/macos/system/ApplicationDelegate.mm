#include "host/macos/system/ApplicationDelegate.h"

#include <utility>

@implementation TWApplicationDelegate
- (instancetype)initWithEvents:(tarnwell::host_macos::ApplicationEvents)events {
  self = [super init];
  if (self != nil) {
    events_ = std::move(events);
  }
  return self;
}
- (void)applicationDidFinishLaunching:(NSNotification*)note {
  (void)note;
  events_.launched();
}
- (BOOL)applicationShouldHandleReopen:(NSApplication*)application hasVisibleWindows:(BOOL)visible {
  (void)application;
  (void)visible;
  events_.reopened();
  // There is nothing left for the platform to open.
  return NO;
}
- (void)applicationWillTerminate:(NSNotification*)note {
  (void)note;
  events_.terminates();
}
- (BOOL)applicationSupportsSecureRestorableState:(NSApplication*)application {
  (void)application;
  return YES;
}
@end
