#pragma once

#import <AppKit/AppKit.h>

#include <functional>

#include "host/macos/look/Retained.h"

/// What messages of the platform's go to: runs a function.
@interface TWActionTarget : NSObject {
  std::function<void()> run_;
}
- (instancetype)initRunning:(std::function<void()>)run;
- (void)act:(id)sender;
- (void)cut;
@end

namespace tarnwell::host_macos {

/// Owns such a target; the function runs no more when this has gone.
class ActionTarget {
 public:
  explicit ActionTarget(std::function<void()> run)
      : target_(Retained<TWActionTarget*>::adopt([[TWActionTarget alloc] initRunning:std::move(run)])) {}
  ActionTarget(const ActionTarget&) = delete;
  ActionTarget& operator=(const ActionTarget&) = delete;
  ~ActionTarget() { [target_.get() cut]; }

  id target() const { return target_.get(); }
  static SEL action() { return @selector(act:); }

 private:
  Retained<TWActionTarget*> target_;
};

}  // namespace tarnwell::host_macos
