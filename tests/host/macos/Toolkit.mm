#include "host/macos/Toolkit.h"

#include <cstdlib>
#include <stdexcept>
#include <string>
#include <utility>

#include "fixtures/WaitFor.h"
#include "system/processes/Pipe.h"
#include "system/processes/Process.h"

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

// The server ends with this process.
void openDisplay() {
  system::Pipe pipe = system::Pipe::create();
  const auto server = system::Process::start({
      .words = {"Xvfb", "-displayfd", "3", "-screen", "0", "1280x1024x24", "-nolisten", "tcp"},
      .extra = pipe.writeEnd.number(),
      .endsWithStarter = true,
  });
  pipe.writeEnd.close();
  std::string number = pipe.readEnd.readAll().value_or("");
  if (!server || number.empty()) {
    throw std::runtime_error("Xvfb does not start");
  }
  number.pop_back();
  ::setenv("DISPLAY", (":" + number).c_str(), 1);
}

TWLastingApplication* application() { return static_cast<TWLastingApplication*>(NSApp); }

}  // namespace

void startToolkit() {
  static const bool started = [] {
    openDisplay();
    [[NSAutoreleasePool alloc] init];
    [TWLastingApplication sharedApplication];
    [NSApp finishLaunching];
    return true;
  }();
  (void)started;
}

void settle() {
  for (;;) {
    NSEvent* event = [NSApp nextEventMatchingMask:NSAnyEventMask
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
