#include "host/macos/look/ActionTarget.h"

@implementation TWActionTarget
- (instancetype)initRunning:(std::function<void()>)run {
  self = [super init];
  if (self != nil) {
    run_ = std::move(run);
  }
  return self;
}
- (void)act:(id)sender {
  (void)sender;
  // A copy: what it does may cut this.
  if (const std::function<void()> run = run_) {
    run();
  }
}
- (void)cut {
  run_ = nullptr;
}
@end
