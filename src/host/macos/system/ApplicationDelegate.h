#pragma once

#import <AppKit/AppKit.h>

#include <functional>

namespace tarnwell::host_macos {

/// What the platform tells of the application as a whole.
struct ApplicationEvents {
  std::function<void()> launched = {};
  /// Started once more, or its icon in the Dock was clicked.
  std::function<void()> reopened = {};
  /// The last that is called: the process ends.
  std::function<void()> terminates = {};
};

}  // namespace tarnwell::host_macos

@interface TWApplicationDelegate : NSObject <NSApplicationDelegate> {
  tarnwell::host_macos::ApplicationEvents events_;
}
- (instancetype)initWithEvents:(tarnwell::host_macos::ApplicationEvents)events;
@end
