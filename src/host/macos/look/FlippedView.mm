#include "host/macos/look/FlippedView.h"

@implementation TWFlippedView
- (BOOL)isFlipped {
  return YES;
}
@end
